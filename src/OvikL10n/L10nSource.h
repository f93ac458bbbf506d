#pragma once
// The text tables compiled into the binary: the base language (Simplified Chinese) and the
// translations that stand in for resource bundles. Each is parsed once, at first use, from
// the bytes of its data file, and never changes after.
#include <cstddef>
#include <functional>
#include <string>
#include <string_view>
#include <unordered_map>

namespace ovik {

class L10nSource {
public:
    struct KeyHash {
        using is_transparent = void;
        std::size_t operator()(std::string_view key) const { return std::hash<std::string_view>{}(key); }
    };
    /// Key -> text. Looked up by `std::string_view` without making a string.
    using Table = std::unordered_map<std::string, std::string, KeyHash, std::equal_to<>>;

    /// The base language: every key the program uses.
    static const Table& values();
    /// The table of `language`, or null when the base table speaks for it.
    static const Table* translation(std::string_view language);
    /// The text of `key`: from `translation` when it has one, else from `base`, else the key
    /// itself, so that a missing text shows where it is missing.
    static std::string lookup(std::string_view key, const Table* translation, const Table& base);

private:
    static Table parse(std::string_view bytes);
    // Defined in sources made at build time from data/l10n/*.json.
    static std::string_view compiledBaseTable();
    static std::string_view compiledEnglishTable();
};

} // namespace ovik

#include "CommandLine.h"

#include <CLI/CLI.hpp>

#include <charconv>
#include <cmath>
#include <cstdio>
#include <filesystem>
#include <new>

#include "OvikDrafts/LocalizedDescription.h"
#include "OvikL10n/L10n.h"
#include "OvikPlatform/json/JSONValue.h"
#include "OvikQuickLook/QuickLookError.h"
#include "UsageError.h"

namespace ovik::cli {
namespace {

// The subcommand the parser reached: where a refusal belongs and whose help explains it.
CLI::App& reached(CLI::App& app) {
    CLI::App* at = &app;
    while (!at->get_subcommands().empty()) at = at->get_subcommands().front();
    return *at;
}

std::string commandName(const CLI::App& command) {
    std::string name = command.get_name();
    for (const CLI::App* parent = command.get_parent(); parent; parent = parent->get_parent())
        name = parent->get_name() + " " + name;
    return name;
}

std::string joined(const std::vector<std::string>& names) {
    std::string out;
    for (const std::string& name : names) out += (out.empty() ? "" : ", ") + name;
    return out;
}

std::vector<std::string> missingOptions(const CLI::App& command) {
    std::vector<std::string> names;
    for (const CLI::Option* option : command.get_options())
        if (option->get_required() && option->count() == 0) names.push_back(option->get_name());
    return names;
}

std::vector<std::string> subcommandNames(CLI::App& command) {
    std::vector<std::string> names;
    for (const CLI::App* sub : command.get_subcommands([](CLI::App*) { return true; })) names.push_back(sub->get_name());
    return names;
}

// The parser's refusals by kind, in our words: its own texts are English and name its internals.
std::string parserMessage(const CLI::ParseError& error, CLI::App& command) {
    const std::string kind = error.get_name();
    if (kind == "RequiredError") {
        const std::vector<std::string> missing = missingOptions(command);
        if (!missing.empty()) return L10n::format("cli.usage.missing", {joined(missing)});
        if (!command.remaining().empty())
            return L10n::format("cli.usage.unknownCommand", {command.remaining().front(), joined(subcommandNames(command))});
        return L10n::format("cli.usage.subcommand", {joined(subcommandNames(command))});
    }
    if (kind == "ExtrasError") return L10n::format("cli.usage.unexpected", {joined(command.remaining())});
    if (kind == "ArgumentMismatch") return L10n::text("cli.usage.valueMissing");
    if (kind == "ExcludesError") return L10n::text("cli.usage.excludes");
    if (kind == "RequiresError") return L10n::text("cli.usage.requires");
    if (kind == "ConversionError" || kind == "ValidationError") return L10n::text("cli.usage.badValue");
    return L10n::text("cli.usage.invalid");
}

// Engine errors carry finished text; anything else is worded without the library's internals.
std::string failureMessage(const std::exception& error) {
    if (const auto* thumbnail = dynamic_cast<const QuickLookFailure*>(&error))
        return thumbnail->cause().empty() ? thumbnail->message() : thumbnail->message() + "\n" + thumbnail->cause();
    if (dynamic_cast<const Error*>(&error)) return localizedDescription(error);
    if (const auto* file = dynamic_cast<const std::filesystem::filesystem_error*>(&error))
        return L10n::format("cli.failure.file", {file->path1().filename().string()});
    if (dynamic_cast<const std::bad_alloc*>(&error)) return L10n::text("cli.failure.memory");
    return L10n::text("cli.failure.unexpected");
}

int usage(const std::string& message, CLI::App& command) {
    std::fprintf(stderr, "%s\n%s\n", message.c_str(), L10n::format("cli.usage.help", {commandName(command)}).c_str());
    return 2;
}

[[noreturn]] void refuse(std::string_view option, const std::string& text, std::string_view key,
                         std::vector<L10nArgument> range = {}) {
    std::vector<L10nArgument> arguments{std::string(option), text};
    arguments.insert(arguments.end(), range.begin(), range.end());
    throw UsageError(L10n::format(key, arguments));
}

std::string numberText(double value) { return JSONValue(value).compact(); }

} // namespace

int runCommandLine(CLI::App& app, int argc, char** argv) {
    try {
        app.parse(argc, argv);
    } catch (const CLI::Success& help) {
        return app.exit(help);
    } catch (const CLI::ParseError& error) {
        return usage(parserMessage(error, reached(app)), reached(app));
    } catch (const UsageError& error) {
        return usage(error.what(), reached(app));
    } catch (const std::exception& error) {
        std::fprintf(stderr, "%s\n", failureMessage(error).c_str());
        return 1;
    }
    return 0;
}

std::int64_t momentArgument(std::string_view option, const std::string& text) {
    std::int64_t value = 0;
    const auto [end, failure] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (text.empty() || failure != std::errc() || end != text.data() + text.size())
        refuse(option, text, "cli.usage.badMoment");
    return value;
}

double numberArgument(std::string_view option, const std::string& text, double low, double high) {
    double value = 0;
    const auto [end, failure] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (text.empty() || failure != std::errc() || end != text.data() + text.size() || !std::isfinite(value) ||
        value < low || value > high)
        refuse(option, text, "cli.usage.badNumber", {numberText(low), numberText(high)});
    return value;
}

std::int64_t integerArgument(std::string_view option, const std::string& text, std::int64_t low, std::int64_t high) {
    std::int64_t value = 0;
    const auto [end, failure] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (text.empty() || failure != std::errc() || end != text.data() + text.size() || value < low || value > high)
        refuse(option, text, "cli.usage.badWholeNumber", {low, high});
    return value;
}

} // namespace ovik::cli

#pragma once
// The order in which actions are composed: numbers first, element by element (a prefix before
// what it starts), then words. Built by `Action::sortKey`.
#include <string>
#include <tuple>
#include <vector>

namespace ovik {

struct Action;

struct ActionSortKey {
    std::vector<double> numbers;
    std::vector<std::string> words;

    static ActionSortKey of(const Action& action);

    friend bool operator<(const ActionSortKey& a, const ActionSortKey& b) {
        return std::tie(a.numbers, a.words) < std::tie(b.numbers, b.words);
    }
    bool operator==(const ActionSortKey&) const = default;
};

} // namespace ovik

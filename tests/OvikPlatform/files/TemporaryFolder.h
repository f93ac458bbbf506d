#pragma once
// A fixture that gives each test a fresh folder of its own and removes it afterwards.
#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <set>
#include <string>

namespace ovik::testing {

class TemporaryFolder : public ::testing::Test {
protected:
    void SetUp() override {
        std::string pattern = (std::filesystem::temp_directory_path() / "ovik-test-XXXXXX").string();
        ASSERT_NE(::mkdtemp(pattern.data()), nullptr);
        folder = pattern;
    }
    void TearDown() override {
        std::error_code ignored;
        std::filesystem::remove_all(folder, ignored);
    }

    static void writeText(const std::filesystem::path& path, const std::string& text) {
        std::ofstream(path, std::ios::binary) << text;
    }
    static std::string readText(const std::filesystem::path& path) {
        std::ifstream in(path, std::ios::binary);
        return std::string(std::istreambuf_iterator<char>(in), {});
    }
    /// Every path under `root`, relative to it: what a test compares to see that nothing
    /// was written.
    static std::set<std::string> tree(const std::filesystem::path& root) {
        std::set<std::string> paths;
        for (const auto& entry : std::filesystem::recursive_directory_iterator(root))
            paths.insert(entry.path().lexically_relative(root).string());
        return paths;
    }

    std::filesystem::path folder;
};

} // namespace ovik::testing

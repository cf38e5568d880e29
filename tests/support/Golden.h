// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <sstream>
#include <string>
#include <vector>

/// Comparing a text with a golden file.
///
///     EXPECT_TRUE(matchesGolden("stats/data/f_propelente.txt", report));
///
/// The file is named from tests/. On a mismatch the actual text is written under the name of the
/// golden file into golden/ beside the test programs, and the lines that differ are shown. A golden
/// file is remade by reading that text, judging it right, and copying it over.
namespace golden {

inline std::string readWhole(const std::filesystem::path& path)
{
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

inline std::vector<std::string> linesOf(const std::string& text)
{
    std::vector<std::string> lines;
    std::istringstream stream(text);
    for (std::string line; std::getline(stream, line);)
        lines.push_back(line);
    return lines;
}

/// The lines that differ, number by number: what was expected after "-", what came after "+".
inline std::string differenceOf(const std::string& expected, const std::string& actual)
{
    constexpr int mostShown = 20;
    const std::vector<std::string> before = linesOf(expected);
    const std::vector<std::string> after = linesOf(actual);
    std::ostringstream shown;
    int count = 0;
    for (std::size_t i = 0; i < std::max(before.size(), after.size()); ++i) {
        const std::string* const old = i < before.size() ? &before[i] : nullptr;
        const std::string* const now = i < after.size() ? &after[i] : nullptr;
        if (old && now && *old == *now)
            continue;
        if (++count > mostShown)
            continue;
        shown << "line " << i + 1 << '\n';
        if (old)
            shown << "  - |" << *old << "|\n";
        if (now)
            shown << "  + |" << *now << "|\n";
    }
    if (count > mostShown)
        shown << "... and " << count - mostShown << " more lines\n";
    if (count == 0)
        shown << "only the ends of lines or of the file differ\n";
    return shown.str();
}

} // namespace golden

/// Whether `actual` is, byte for byte, the contents of tests/`goldenFile`.
inline ::testing::AssertionResult matchesGolden(const std::string& goldenFile,
                                                const std::string& actual)
{
    namespace fs = std::filesystem;
    const fs::path goldenPath = fs::path(CL_SOURCE_DIR) / "tests" / goldenFile;
    const bool exists = fs::is_regular_file(goldenPath);
    const std::string expected = exists ? golden::readWhole(goldenPath) : std::string();
    if (exists && expected == actual)
        return ::testing::AssertionSuccess();

    const fs::path actualPath = fs::path(CL_BINARY_DIR) / "bin" / "golden" / goldenFile;
    std::error_code ignored; // the stream tells below whether the text could be written
    fs::create_directories(actualPath.parent_path(), ignored);
    std::ofstream written(actualPath, std::ios::binary | std::ios::trunc);
    written << actual;
    written.close();
    return ::testing::AssertionFailure()
           << "golden file " << goldenPath.string() << (exists ? " differs\n" : " does not exist\n")
           << (written ? "actual text in " : "actual text could not be written to ")
           << actualPath.string() << '\n'
           << golden::differenceOf(expected, actual);
}

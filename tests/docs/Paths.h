#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace ventlock::test {

/// Path of a file of the source by its path there.
std::string InSource(const std::string& path);

/// The documents in Markdown, sorted.
std::vector<std::string> DocumentPaths();

/// Every page of the help book in both languages, sorted.
std::vector<std::string> HelpPages();

/// A test's name after the file it is about.
std::string NameOfPath(const testing::TestParamInfo<std::string>& path);

}  // namespace ventlock::test

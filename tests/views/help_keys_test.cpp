// The help page lists the default keys as the program has them.
#include <gtest/gtest.h>

#include <fstream>
#include <sstream>

#include "views/core/KeyMap.h"

namespace korvane {
namespace {

std::string Cells(std::size_t row) {
    if (row >= kKeyFunctions) return "<td></td><td></td>";
    const KeyFunctionInfo& function =
        KeyFunctionTable()[static_cast<std::size_t>(KeyDisplayOrder()[row])];
    return std::string("<td>") + function.text + "</td><td><kbd>" + KeyName(function.standard) +
           "</kbd></td>";
}

/// Two columns of functions, each with its key, in the order of the preferences dialog.
std::string KeyTable() {
    constexpr std::size_t kRows = (kKeyFunctions + 1) / 2;
    std::string table;
    for (std::size_t row = 0; row < kRows; ++row)
        table += "<tr>" + Cells(row) + "\n" + Cells(row + kRows) + "</tr>\n";
    return table;
}

TEST(HelpKeysTest, TheHelpPageListsTheDefaultKeys) {
    std::ifstream file(KORVANE_SOURCE_DIR "/help/Korvane/index.htm");
    std::stringstream page;
    page << file.rdbuf();
    ASSERT_FALSE(page.str().empty());
    EXPECT_TRUE(page.str().find(KeyTable()) != std::string::npos) << "it should be\n" << KeyTable();
}

}  // namespace
}  // namespace korvane

// SPDX-License-Identifier: MIT
#include "ui/text_lines_model.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace hearthmark::ui {

TEST(TextLinesModel, EndsALineAtALineFeedAndBetweenCharactersAfter2000Bytes) {
    const std::string longest(2000, 'a');
    const std::string cut(1998, 'a');
    const std::vector<std::pair<std::string, std::vector<std::string>>> rows{
        {"", {}},
        {"a", {"a"}},
        {"a\n", {"a"}},
        {"\n\na", {"", "", "a"}},
        {longest, {longest}},
        {longest + "\nb", {longest, "b"}},
        {longest + "b", {longest, "b"}},
        {cut + "🍅b", {cut, "🍅b"}},
        {cut + "éb\n", {cut + "é", "b"}},
    };
    TextLinesModel model;
    for (const auto& [text, lines] : rows) {
        model.setText(text);
        std::vector<std::string> shown;
        for (int row = 0; row < model.rowCount(); ++row) {
            shown.push_back(
                model.index(row).data(TextLinesModel::LineRole).toString().toStdString());
        }
        EXPECT_EQ(shown, lines) << text.size();
    }
    model.setText(std::string(5000, '\x80'));
    EXPECT_EQ(model.rowCount(), 3) << "also where there are no characters";
}

}  // namespace hearthmark::ui

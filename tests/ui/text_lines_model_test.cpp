// SPDX-License-Identifier: MIT
#include "ui/text/text_lines_model.h"

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

TEST(TextLinesModel, SelectsAcrossLinesInBothDirections) {
    TextLinesModel model;
    const std::string text = "one\n\ntwé\n" + std::string(2001, 'x');
    model.setText(text);
    ASSERT_EQ(model.rowCount(), 5);
    using Place = std::pair<int, int>;
    for (const auto& [from, to, selected] : std::vector<std::tuple<Place, Place, std::string>>{
             {{0, 1}, {0, 1}, ""},
             {{0, 1}, {0, 3}, "ne"},
             {{0, 3}, {2, 0}, "\n\n"},
             {{2, 2}, {0, 2}, "e\n\ntw"},
             {{3, 1999}, {4, 1}, "xx"},
             {{2, 2}, {4, 9}, "é\n" + std::string(2001, 'x')},
             {{2, 2}, {5, 0}, ""},
             {{2, 2}, {-1, 0}, ""}}) {
        model.beginSelection(from.first, from.second);
        model.moveSelection(to.first, to.second);
        EXPECT_EQ(model.selectedText().toStdString(), selected);
    }
    model.selectAll();
    EXPECT_EQ(model.selectedText().toStdString(), text);
    TextLinesModel empty;
    empty.beginSelection(-1, 0);
    empty.selectAll();
    EXPECT_EQ(empty.selectedText(), "");
    EXPECT_EQ(model.index(2).data(TextLinesModel::SelectedToRole), 3);
    model.beginSelection(0, 0);
    EXPECT_EQ(model.index(2).data(TextLinesModel::SelectedToRole), 0);
}

}  // namespace hearthmark::ui

// SPDX-License-Identifier: MIT
#include "ui/text/text_lines_model.h"

#include <QClipboard>
#include <QGuiApplication>
#include <algorithm>

#include "base/text.h"

namespace hearthmark::ui {

namespace {

constexpr std::size_t kLongestLine = 2'000;
constexpr std::size_t kLongestCharacter = 4;

// The length of the first piece of a line that is too long: whole characters.
std::size_t pieceLength(std::string_view line) {
    for (std::size_t length = kLongestLine; length > kLongestLine - kLongestCharacter; --length) {
        if (base::beginsCharacter(line[length])) {
            return length;
        }
    }
    return kLongestLine;  // not UTF-8
}

}  // namespace

void TextLinesModel::setText(std::string_view text) {
    beginResetModel();
    text_ = text;
    bounds_.clear();
    for (std::size_t begin = 0; begin < text.size();) {
        bounds_.push_back(begin);
        const std::string_view rest = text.substr(begin);
        const std::size_t length = rest.substr(0, kLongestLine + 1).find('\n');
        if (length != std::string_view::npos) {
            begin += length + 1;
        } else {
            begin += rest.size() > kLongestLine ? pieceLength(rest) : rest.size();
        }
    }
    bounds_.push_back(text.size());
    selectionBegin_ = {};
    selectionEnd_ = {};
    endResetModel();
}

int TextLinesModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() || bounds_.empty() ? 0 : static_cast<int>(bounds_.size() - 1);
}

QVariant TextLinesModel::data(const QModelIndex& index, int role) const {
    if (!checkIndex(index, CheckIndexOption::IndexIsValid)) {
        return {};
    }
    switch (role) {
        case LineRole:
            return shownLine(index.row());
        case SelectedFromRole:
            return selectedPart(index.row()).first;
        case SelectedToRole:
            return selectedPart(index.row()).second;
        default:
            return {};
    }
}

QHash<int, QByteArray> TextLinesModel::roleNames() const {
    return {{LineRole, "line"}, {SelectedFromRole, "selectedFrom"}, {SelectedToRole, "selectedTo"}};
}

void TextLinesModel::beginSelection(int row, int column) {
    select({row, column}, {row, column});
}

void TextLinesModel::moveSelection(int row, int column) {
    select(selectionBegin_, {row, column});
}

void TextLinesModel::selectAll() {
    if (const int last = rowCount() - 1; last >= 0) {
        select({}, {last, static_cast<int>(shownLine(last).size())});
    }
}

bool TextLinesModel::copySelection() const {
    const QString text = selectedText();
    if (!text.isEmpty()) {
        QGuiApplication::clipboard()->setText(text);
    }
    return !text.isEmpty();
}

QString TextLinesModel::selectedText() const {
    QString text;
    const auto [first, last] = std::minmax(selectionBegin_, selectionEnd_);
    for (int row = first.row; row <= last.row && row < rowCount(); ++row) {
        const auto [from, to] = selectedPart(row);
        text += shownLine(row).mid(from, to - from);
        if (row < last.row && lineAt(row).ends_with('\n')) {
            text += '\n';
        }
    }
    return text;
}

std::string_view TextLinesModel::lineAt(int row) const {
    const auto index = static_cast<std::size_t>(row);
    return text_.substr(bounds_[index], bounds_[index + 1] - bounds_[index]);
}

QString TextLinesModel::shownLine(int row) const {
    std::string_view line = lineAt(row);
    if (line.ends_with('\n')) {
        line.remove_suffix(1);
    }
    return QString::fromUtf8(line.data(), static_cast<qsizetype>(line.size()));
}

std::pair<int, int> TextLinesModel::selectedPart(int row) const {
    const auto [first, last] = std::minmax(selectionBegin_, selectionEnd_);
    if (row < first.row || row > last.row) {
        return {0, 0};
    }
    const int length = static_cast<int>(shownLine(row).size());
    return {row == first.row ? std::min(first.column, length) : 0,
            row == last.row ? std::min(last.column, length) : length};
}

void TextLinesModel::select(Place from, Place to) {
    if (!checkIndex(index(from.row), CheckIndexOption::IndexIsValid) ||
        !checkIndex(index(to.row), CheckIndexOption::IndexIsValid)) {
        return;
    }
    const int first = std::min({selectionBegin_.row, selectionEnd_.row, from.row, to.row});
    const int last = std::max({selectionBegin_.row, selectionEnd_.row, from.row, to.row});
    selectionBegin_ = from;
    selectionEnd_ = to;
    emit dataChanged(index(first), index(last), {SelectedFromRole, SelectedToRole});
}

}  // namespace hearthmark::ui

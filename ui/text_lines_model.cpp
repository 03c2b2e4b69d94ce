// SPDX-License-Identifier: MIT
#include "ui/text_lines_model.h"

#include <QString>
#include <algorithm>

namespace hearthmark::ui {

namespace {

constexpr std::size_t kLongestLine = 2'000;
constexpr std::size_t kLongestCharacter = 4;

// The length of the first piece of a line that is too long: whole characters.
std::size_t pieceLength(std::string_view line) {
    for (std::size_t length = kLongestLine; length > kLongestLine - kLongestCharacter; --length) {
        const bool isContinuation = (static_cast<unsigned char>(line[length]) & 0xC0U) == 0x80U;
        if (!isContinuation) {
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
    endResetModel();
}

int TextLinesModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() || bounds_.empty() ? 0 : static_cast<int>(bounds_.size() - 1);
}

QVariant TextLinesModel::data(const QModelIndex& index, int role) const {
    if (role != LineRole || !checkIndex(index, CheckIndexOption::IndexIsValid)) {
        return {};
    }
    const auto row = static_cast<std::size_t>(index.row());
    std::string_view line = text_.substr(bounds_[row], bounds_[row + 1] - bounds_[row]);
    if (line.ends_with('\n')) {
        line.remove_suffix(1);
    }
    return QString::fromUtf8(line.data(), static_cast<qsizetype>(line.size()));
}

QHash<int, QByteArray> TextLinesModel::roleNames() const {
    return {{LineRole, "line"}};
}

}  // namespace hearthmark::ui

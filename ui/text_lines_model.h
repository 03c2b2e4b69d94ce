// SPDX-License-Identifier: MIT
#pragma once

#include <QtQmlIntegration/qqmlintegration.h>

#include <QAbstractListModel>
#include <cstddef>
#include <string_view>
#include <vector>

namespace hearthmark::ui {

// A long text as a list of its lines, so that a view lays out only those that are visible. A line
// of more than 2,000 bytes is shown as several.
class TextLinesModel : public QAbstractListModel {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("made by the share container adapter")

 public:
    enum Role { LineRole = Qt::UserRole };

    using QAbstractListModel::QAbstractListModel;

    // Requires: the text, which is UTF-8, outlives this or the next call.
    void setText(std::string_view text);

    int rowCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QHash<int, QByteArray> roleNames() const override;

 private:
    std::string_view text_;
    // Where each line begins, and behind the last one where it ends.
    std::vector<std::size_t> bounds_;
};

}  // namespace hearthmark::ui

// SPDX-License-Identifier: MIT
#pragma once

#include <QtQmlIntegration/qqmlintegration.h>

#include <QAbstractListModel>
#include <QString>
#include <cstddef>
#include <string_view>
#include <tuple>
#include <utility>
#include <vector>

namespace hearthmark::ui {

// A long text as a list of its lines, so that a view lays out only those that are visible. A line
// of more than 2,000 bytes is shown as several. A part of the text can be selected; places in it
// are a row and, in the row, a number of UTF-16 units.
class TextLinesModel : public QAbstractListModel {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("made by the adapters")

 public:
    enum Role { LineRole = Qt::UserRole, SelectedFromRole, SelectedToRole };

    using QAbstractListModel::QAbstractListModel;

    // Requires: the text, which is UTF-8, outlives this or the next call.
    void setText(std::string_view text);

    int rowCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QHash<int, QByteArray> roleNames() const override;

    // Places that do not exist change nothing. A selection goes from where it begins to where it
    // was moved last, in either direction.
    Q_INVOKABLE void beginSelection(int row, int column);
    Q_INVOKABLE void moveSelection(int row, int column);
    Q_INVOKABLE void selectAll();
    // To the clipboard. Answers whether something was selected.
    Q_INVOKABLE bool copySelection() const;

    QString selectedText() const;

 private:
    struct Place {
        friend bool operator<(const Place& a, const Place& b) {
            return std::tie(a.row, a.column) < std::tie(b.row, b.column);
        }

        int row = 0;
        int column = 0;
    };

    std::string_view lineAt(int row) const;
    QString shownLine(int row) const;
    // The part of a row's text that is selected, up to its end where the next row is too.
    std::pair<int, int> selectedPart(int row) const;
    void select(Place from, Place to);

    std::string_view text_;
    // Where each line begins, and behind the last one where it ends.
    std::vector<std::size_t> bounds_;
    Place selectionBegin_;
    Place selectionEnd_;
};

}  // namespace hearthmark::ui

// SPDX-License-Identifier: MIT
#include "ui/sheets/file_transfer_adapter.h"

#include <QStringList>
#include <algorithm>
#include <cstdint>
#include <utility>

#include "presentation/texts.h"
#include "ui/sheets/restore_adapter.h"
#include "ui/text/text_conversion.h"

namespace hearthmark::ui {

namespace {

using exporting::PathFault;
using Phase = exporting::FileTransferViewState::Phase;

// More of them would be longer than anybody reads.
constexpr std::size_t kMostNames = 10;

QString tr(const char* text) {
    return FileTransferAdapter::tr(text);
}

// "3 tasks, 1 interval and 14 notes"
QString countsText(const store::ImportCounts& counts) {
    QStringList parts;
    const auto add = [&parts](std::size_t count, auto text) {
        if (count > 0) {
            parts += text(static_cast<std::int64_t>(count));
        }
    };
    add(counts.tasks, &tasksText);
    add(counts.intervals, &intervalsText);
    add(counts.notes, &notesText);
    const QString last = parts.takeLast();
    return parts.isEmpty() ? last : tr("%1 and %2").arg(parts.join(QStringLiteral(", ")), last);
}

QString passedOverText(const store::ImportCounts& counts) {
    if (counts.withoutId == 0) {
        return {};
    }
    return counts.withoutId == 1
               ? tr("1 entry has no id and is passed over.")
               : tr("%1 entries have no id and are passed over.").arg(counts.withoutId);
}

QString leftOutText(const exporting::LeftOut& leftOut) {
    if (leftOut.intervals > 0) {
        return tr("Left out, since a calendar cannot have them: %1")
            .arg(intervalsText(static_cast<std::int64_t>(leftOut.intervals)));
    }
    if (leftOut.names.empty()) {
        return {};
    }
    QStringList lines{tr("Left out, since they hold what cannot be written:")};
    for (std::size_t i = 0; i < std::min(leftOut.names.size(), kMostNames); ++i) {
        lines += toOneLine(presentation::orDash(leftOut.names[i]));
    }
    if (leftOut.names.size() > kMostNames) {
        lines += tr("and %1 more").arg(leftOut.names.size() - kMostNames);
    }
    return lines.join(QLatin1Char('\n'));
}

// Each below the other, those that there are.
QString paragraphs(QStringList texts) {
    texts.removeAll(QString());
    return texts.join(QLatin1Char('\n'));
}

}  // namespace

FileTransferAdapter::FileTransferAdapter(
    std::shared_ptr<exporting::FileTransferViewModel> viewModel)
    : viewModel_(std::move(viewModel)) {
    follow(viewModel_->viewState());
}

bool FileTransferAdapter::isAsking() const {
    return state().phase == Phase::asking;
}

bool FileTransferAdapter::isWorking() const {
    return state().phase == Phase::working;
}

QString FileTransferAdapter::title() const {
    switch (state().phase) {
        case Phase::idle:
        case Phase::choosing:
            return {};
        case Phase::asking:
        case Phase::deciding:
            if (state().isImport) {
                return tr("Import");
            }
            return state().kind == services::FileKind::everything ? tr("Export Everything")
                                                                  : tr("Export");
        case Phase::working:
            return state().isImport ? tr("Reading…") : tr("Writing…");
        case Phase::done:
            return state().isImport ? tr("Imported") : tr("Exported");
        case Phase::failed:
            return state().isImport ? tr("Nothing was imported.") : tr("Nothing was written.");
    }
    return {};
}

QString FileTransferAdapter::detail() const {
    switch (state().phase) {
        case Phase::idle:
        case Phase::choosing:
            return {};
        case Phase::asking:
            return state().isImport
                       ? tr("A file that “Export Everything…” wrote. What is there already stays "
                            "as it is.")
                       : tr("Where the file is to be. “~” stands for your home folder.");
        case Phase::working:
            return path();
        case Phase::deciding:
            return paragraphs({state().counts.isEmpty()
                                   ? tr("Nothing in it is new.")
                                   : tr("%1 would be added. What is there stays as it is. A "
                                        "backup is made before.")
                                         .arg(countsText(state().counts)),
                               passedOverText(state().counts)});
        case Phase::done:
            return toldText();
        case Phase::failed:
            return path() + QLatin1Char('\n') + toQString(state().reason);
    }
    return {};
}

QString FileTransferAdapter::toldText() const {
    if (!state().isImport) {
        return paragraphs(
            {tr("The file is written: %1").arg(path()), leftOutText(state().leftOut)});
    }
    return state().counts.isEmpty()
               ? tr("Nothing in it is new.")
               : tr("%1 added. Ctrl+Z takes that back.").arg(countsText(state().counts));
}

QString FileTransferAdapter::path() const {
    return toQString(state().path);
}

void FileTransferAdapter::setPath(const QString& path) {
    viewModel_->type(toUtf8(path));
}

QString FileTransferAdapter::fault() const {
    switch (state().fault) {
        case PathFault::none:
            return {};
        case PathFault::empty:
            return tr("Type the path of a file.");
        case PathFault::isFolder:
            return tr("This is a folder.");
        case PathFault::noFolder:
            return tr("There is no such folder.");
        case PathFault::noFile:
            return tr("There is no such file.");
        case PathFault::isThere:
            return tr("There is such a file already.");
    }
    return {};
}

QString FileTransferAdapter::acceptText() const {
    if (isAsking() && state().fault == PathFault::isThere) {
        return tr("Replace");
    }
    if (isAsking()) {
        return state().isImport ? tr("Read") : tr("Export");
    }
    return state().phase == Phase::deciding && !state().counts.isEmpty() ? tr("Import") : QString();
}

QString FileTransferAdapter::dismissText() const {
    return isWorking() || !acceptText().isEmpty() ? tr("Cancel") : tr("Close");
}

void FileTransferAdapter::exportShown(double from, double to, Form form) {
    viewModel_->exportShown(
        base::Date(base::Seconds(from)), base::Date(base::Seconds(to)),
        form == Table ? services::FileKind::table : services::FileKind::calendar);
}

void FileTransferAdapter::enter() {
    if (!acceptText().isEmpty()) {
        accept();
    } else if (!isWorking()) {
        dismiss();
    }
}

}  // namespace hearthmark::ui

// SPDX-License-Identifier: MIT
#include "export/file_transfer_view_model.h"

#include <utility>

#include "base/weakly.h"

namespace hearthmark::exporting {

namespace {

using services::FileChoice;
using services::FileKind;
using Phase = FileTransferViewState::Phase;

constexpr base::Seconds kLook{0.1};
// Work that is done within half a second shows nothing.
constexpr int kLooksUntilShown = 5;

}  // namespace

FileTransferViewModel::FileTransferViewModel(Parts parts)
    : parts_(std::move(parts)),
      documents_(parts_.liveDataFactory, parts_.clock, parts_.calendar),
      taskImport_(parts_.dataOperationsService, parts_.backups) {}

bool FileTransferViewModel::isWorking() const {
    return viewState_.value().phase == Phase::working;
}

void FileTransferViewModel::change(const std::function<void(FileTransferViewState&)>& change) {
    FileTransferViewState state = viewState_.value();
    change(state);
    viewState_.setValue(std::move(state));
}

void FileTransferViewModel::exportEverything() {
    if (!isWorking()) {
        makeDocument_ = [this] { return documents_.everything(); };
        suggestedName_ = documents_.nameOfEverything();
    }
    begin(false, FileKind::everything);
}

void FileTransferViewModel::exportShown(base::Date from, base::Date to, FileKind kind) {
    if (!isWorking()) {
        makeDocument_ = [this, from, to, kind] { return documents_.shown(from, to, kind); };
        suggestedName_ = documents_.nameOfShown(from, to, kind);
    }
    begin(false, kind);
}

void FileTransferViewModel::import() {
    if (!isWorking()) {
        suggestedName_.clear();
    }
    begin(true, FileKind::everything);
}

void FileTransferViewModel::begin(bool isImport, FileKind kind) {
    if (isWorking()) {
        change([](auto& state) { state.isPresented = true; });
        return;
    }
    FileTransferViewState state;
    state.phase = Phase::choosing;
    state.isImport = isImport;
    state.kind = kind;
    viewState_.setValue(std::move(state));
    auto answer = base::weakly(weak_from_this(), &FileTransferViewModel::take);
    if (isImport) {
        parts_.ports.fileChooser->chooseFileToRead("Import", kind, std::move(answer));
    } else {
        parts_.ports.fileChooser->chooseFileToWrite(
            kind == FileKind::everything ? "Export Everything" : "Export", suggestedName_, kind,
            std::move(answer));
    }
}

void FileTransferViewModel::take(const FileChoice& choice) {
    switch (choice.outcome) {
        case FileChoice::Outcome::chosen:
            use(choice.file);
            break;
        case FileChoice::Outcome::cancelled:
            viewState_.setValue({});
            break;
        case FileChoice::Outcome::noDialog:
            change([this](auto& state) {
                state.phase = Phase::asking;
                state.isPresented = true;
                state.path = "~/" + suggestedName_;
            });
            break;
    }
}

void FileTransferViewModel::type(const std::string& path) {
    if (viewState_.value().phase == Phase::asking && viewState_.value().path != path) {
        change([&path](auto& state) {
            state.path = path;
            state.fault = PathFault::none;
        });
    }
}

void FileTransferViewModel::accept() {
    const FileTransferViewState state = viewState_.value();
    if (state.phase == Phase::deciding) {
        importRead();
    }
    if (state.phase != Phase::asking) {
        return;
    }
    const std::filesystem::path file = typedPath(state.path, parts_.ports.home);
    PathFault fault = PathFault::empty;
    if (!state.path.empty()) {
        fault = state.isImport ? faultOfFileToRead(file) : faultOfFileToWrite(file);
    }
    const bool isReplaced = fault == PathFault::isThere && state.fault == PathFault::isThere;
    if (fault == PathFault::none || isReplaced) {
        use(file);
    } else {
        change([fault](auto& asking) { asking.fault = fault; });
    }
}

void FileTransferViewModel::dismiss() {
    // The sheet says so once more when it has closed.
    if (!viewState_.value().isPresented) {
        return;
    }
    if (isWorking()) {
        parts_.ports.backgroundWork->stop();
        looks_ = kLooksUntilShown;
        change([](auto& state) { state.isPresented = false; });
    } else {
        tasksRead_.clear();
        viewState_.setValue({});
    }
}

void FileTransferViewModel::use(const std::filesystem::path& file) {
    if (viewState_.value().isImport) {
        work(
            file, {},
            [file](Job& job, const FileWork& work) { job.read = readEverything(file, work); },
            &FileTransferViewModel::endReading);
    } else {
        work(
            file, makeDocument_(),
            [file](Job& job, const FileWork& work) {
                job.written = writeFile(file, *job.document.text, work);
            },
            &FileTransferViewModel::endExport);
    }
}

void FileTransferViewModel::work(const std::filesystem::path& file,
                                 FileDocuments::Document document, Work work,
                                 void (FileTransferViewModel::*whenDone)(const Job&)) {
    change([&](auto& state) {
        state.phase = Phase::working;
        state.fault = PathFault::none;
        state.path = shownPath(file, parts_.ports.home);
    });
    job_ = std::make_shared<Job>();
    job_->document = std::move(document);
    looks_ = 0;
    progressKeeper_ = parts_.timeKeepingProvider->makeTimer(
        kLook, services::Repeats::yes,
        base::weakly(weak_from_this(), &FileTransferViewModel::look));
    parts_.ports.backgroundWork->run(
        [job = job_, work = std::move(work)](const std::stop_token& token) {
            work(*job, {.tellProgress = [&job](double share) { job->share = share; },
                        .isCancelled = [&token] { return token.stop_requested(); }});
        },
        base::weakly(weak_from_this(), [whenDone](FileTransferViewModel& self) {
            self.progressKeeper_->invalidate();
            const std::shared_ptr<Job> job = std::move(self.job_);
            (self.*whenDone)(*job);
        }));
}

void FileTransferViewModel::look() {
    ++looks_;
    const FileTransferViewState& state = viewState_.value();
    if (looks_ == kLooksUntilShown || (state.isPresented && state.share != job_->share)) {
        change([this](auto& working) {
            working.isPresented = working.isPresented || looks_ == kLooksUntilShown;
            working.share = job_->share;
        });
    }
}

void FileTransferViewModel::endExport(const Job& job) {
    switch (job.written.outcome) {
        case FileExport::Outcome::written:
            change([&job](auto& state) {
                state.phase = Phase::done;
                state.isPresented = true;
                state.leftOut = job.document.leftOut();
            });
            break;
        case FileExport::Outcome::cancelled:
            viewState_.setValue({});
            break;
        case FileExport::Outcome::failed:
            fail(job.written.reason);
            break;
    }
}

void FileTransferViewModel::endReading(const Job& job) {
    switch (job.read.outcome) {
        case EverythingRead::Outcome::read:
            tasksRead_ = job.read.tasks;
            change([this](auto& state) {
                state.phase = Phase::deciding;
                state.isPresented = true;
                state.counts = parts_.dataOperationsService->importable(tasksRead_);
            });
            break;
        case EverythingRead::Outcome::cancelled:
            viewState_.setValue({});
            break;
        case EverythingRead::Outcome::refused:
            fail(job.read.reason);
            break;
    }
}

void FileTransferViewModel::fail(const std::string& reason) {
    change([&reason](auto& state) {
        state.phase = Phase::failed;
        state.isPresented = true;
        state.reason = reason;
    });
}

void FileTransferViewModel::importRead() {
    const std::vector<store::TaskRecord> tasks = std::exchange(tasksRead_, {});
    // The store may have changed while somebody made up their mind.
    const store::ImportCounts counts = parts_.dataOperationsService->importable(tasks);
    if (const auto failure = taskImport_.import(tasks)) {
        fail(failure->body);
        return;
    }
    change([&counts](auto& state) {
        state.phase = Phase::done;
        state.counts = counts;
    });
}

}  // namespace hearthmark::exporting

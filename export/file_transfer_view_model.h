// SPDX-License-Identifier: MIT
#pragma once

#include <atomic>
#include <filesystem>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "base/calendar.h"
#include "base/clock.h"
#include "export/everything_reader.h"
#include "export/file_documents.h"
#include "export/file_export.h"
#include "export/typed_path.h"
#include "livedata/published.h"
#include "services/ports/background_work.h"
#include "services/ports/file_chooser.h"
#include "services/ports/time_keeping.h"
#include "store/live_data.h"
#include "store/task_import.h"

namespace hearthmark::exporting {

// What the sheet of exports and imports shows.
struct FileTransferViewState {
    // While choosing, the desktop's dialog asks; asking is done where it has none.
    enum class Phase { idle, choosing, asking, working, deciding, done, failed };

    Phase phase = Phase::idle;
    bool isImport = false;
    services::FileKind kind = services::FileKind::everything;
    // Work that takes long shows, and what was asked or told until then goes on being shown.
    bool isPresented = false;
    // While asking what stands in the field, later the file; both as a person reads it.
    std::string path;
    PathFault fault = PathFault::none;
    // How much of the work is done, from 0 to 1.
    double share = 0;
    // What would be added while deciding, and then what was.
    store::ImportCounts counts;
    LeftOut leftOut;
    // Why it failed.
    std::string reason;
};

// Asks for a file, writes what the store holds to it or adds what it holds to the store, and tells
// what became of that. The file is written and read on another thread. Main thread.
class FileTransferViewModel final : public std::enable_shared_from_this<FileTransferViewModel> {
 public:
    struct Ports {
        std::shared_ptr<services::FileChooser> fileChooser;
        std::shared_ptr<services::BackgroundWork> backgroundWork;
        std::filesystem::path home;
    };
    struct Parts {
        std::shared_ptr<store::DataOperationsServiceProtocol> dataOperationsService;
        std::shared_ptr<const store::LiveDataProvidingFactoryProtocol> liveDataFactory;
        std::shared_ptr<const store::StoreBackups> backups;
        std::shared_ptr<const base::Clock> clock;
        std::shared_ptr<const base::Calendar> calendar;
        std::shared_ptr<services::TimeKeepingProviderProtocol> timeKeepingProvider;
        Ports ports;
    };

    explicit FileTransferViewModel(Parts parts);

    livedata::Published<FileTransferViewState>& viewState() { return viewState_; }

    // Each begins anew where only asked or told something; work that goes on is shown instead.
    void exportEverything();
    // The intervals begun in [from, to), as a table or a calendar.
    void exportShown(base::Date from, base::Date to, services::FileKind kind);
    void import();

    // What stands in the field of the path.
    void type(const std::string& path);
    // Agrees to what the sheet asks: the path, that the file there is replaced, or the import.
    void accept();
    // Closes the sheet, whatever it shows; work is told to stop, and shows what became of it only
    // where it is done nevertheless.
    void dismiss();

 private:
    // What both threads have of the work.
    struct Job {
        std::atomic<double> share = 0;
        FileDocuments::Document document;
        FileExport written;
        EverythingRead read;
    };
    using Work = std::function<void(Job& job, const FileWork& work)>;

    bool isWorking() const;
    void change(const std::function<void(FileTransferViewState&)>& change);
    void begin(bool isImport, services::FileKind kind);
    void take(const services::FileChoice& choice);
    void use(const std::filesystem::path& file);
    void work(const std::filesystem::path& file, FileDocuments::Document document, Work work,
              void (FileTransferViewModel::*whenDone)(const Job&));
    void look();
    void endExport(const Job& job);
    void endReading(const Job& job);
    void fail(const std::string& reason);
    void importRead();

    Parts parts_;
    FileDocuments documents_;
    store::TaskImport taskImport_;
    livedata::Published<FileTransferViewState> viewState_;
    std::string suggestedName_;
    // Made when it is written, from what the store holds then.
    std::function<FileDocuments::Document()> makeDocument_;
    std::shared_ptr<Job> job_;
    std::vector<store::TaskRecord> tasksRead_;
    std::shared_ptr<services::TimeKeeping> progressKeeper_;
    int looks_ = 0;
};

}  // namespace hearthmark::exporting

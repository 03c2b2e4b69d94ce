// SPDX-License-Identifier: MIT
#include "export/file_transfer_view_model.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>
#include <map>

#include "store/undo_history.h"
#include "support/test_store.h"

namespace hearthmark::exporting {
namespace {

using services::FileChoice;
using Phase = FileTransferViewState::Phase;

struct FakeChooser final : services::FileChooser {
    void chooseFileToWrite(const std::string& /*title*/, const std::string& suggestedName,
                           services::FileKind /*kind*/, Answer newAnswer) override {
        suggested = suggestedName;
        answer = std::move(newAnswer);
    }
    void chooseFileToRead(const std::string& /*title*/, services::FileKind /*kind*/,
                          Answer newAnswer) override {
        answer = std::move(newAnswer);
    }

    std::string suggested;
    Answer answer;
};

// Runs when the test says so.
struct FakeWork final : services::BackgroundWork {
    void run(Work newWork, std::function<void()> newWhenDone) override {
        work = std::move(newWork);
        whenDone = std::move(newWhenDone);
        source = {};
    }
    void stop() override { source.request_stop(); }

    void finish() {
        std::exchange(work, nullptr)(source.get_token());
        std::exchange(whenDone, nullptr)();
    }

    Work work;
    std::function<void()> whenDone;
    std::stop_source source;
};

// A store with a task, and beside it the home folder.
struct FileTransfer : testing::Test {
    FileTransfer() {
        ::setenv("TZ", "UTC", 1);
        std::filesystem::create_directory(home);
        store.addTask("Read");
        write("not.json", "{\n\n]");
    }

    void write(const std::string& name, const std::string& text) const {
        std::ofstream(home / name) << text;
    }

    const FileTransferViewState& state() const { return viewModel->viewState().value(); }

    // The phase and whether it is shown, the path, what is wrong with it, and why it failed.
    std::string shown() const {
        const std::map<Phase, std::string> phases{
            {Phase::idle, "idle"},       {Phase::choosing, "choosing"}, {Phase::asking, "asking"},
            {Phase::working, "working"}, {Phase::done, "done"},         {Phase::failed, "failed"}};
        const std::map<PathFault, std::string> faults{{PathFault::none, ""},
                                                      {PathFault::isFolder, "is folder"},
                                                      {PathFault::noFolder, "no folder"},
                                                      {PathFault::noFile, "no file"},
                                                      {PathFault::isThere, "is there"}};
        return phases.at(state().phase) + (state().isPresented ? " shown|" : "|") + state().path +
               '|' + faults.at(state().fault) + '|' + state().reason;
    }

    // Each a word: what a person, the desktop or the work does.
    void act(const std::string& step) {
        const std::string rest = step.substr(step.find(' ') + 1);
        if (step == "export") {
            viewModel->exportEverything();
        } else if (step == "import") {
            viewModel->import();
        } else if (step == "no dialog") {
            chooser->answer({.outcome = FileChoice::Outcome::noDialog, .file = {}});
        } else if (step == "cancelled") {
            chooser->answer({});
        } else if (step.starts_with("chosen ")) {
            chooser->answer({.outcome = FileChoice::Outcome::chosen, .file = home / rest});
        } else if (step.starts_with("type ")) {
            viewModel->type(rest);
        } else if (step == "accept") {
            viewModel->accept();
        } else if (step == "dismiss") {
            viewModel->dismiss();
        } else if (step == "half a second") {
            for (int look = 0; look < 5; ++look) {
                timers->fire();
            }
        } else if (step == "finish") {
            work->finish();
        } else if (step == "delete") {
            store.service->deleteTask(*store.first<store::Task>().id());
        } else {
            FAIL() << step;
        }
    }

    tests::TestStore store;
    std::filesystem::path home = store.directory.path / "home";
    std::shared_ptr<FakeChooser> chooser = std::make_shared<FakeChooser>();
    std::shared_ptr<FakeWork> work = std::make_shared<FakeWork>();
    std::shared_ptr<tests::FakeTimeKeepingProvider> timers =
        std::make_shared<tests::FakeTimeKeepingProvider>();
    std::shared_ptr<const base::Calendar> calendar = std::make_shared<base::LocalCalendar>();
    std::shared_ptr<FileTransferViewModel> viewModel =
        std::make_shared<FileTransferViewModel>(FileTransferViewModel::Parts{
            store.service,
            store.liveData,
            std::make_shared<store::StoreBackups>(store.directory.path, store.clock, calendar),
            store.clock,
            calendar,
            timers,
            {chooser, work, home}});
};

using Steps = std::vector<std::string>;

TEST_F(FileTransfer, GoesAsPersonDesktopAndWorkHaveIt) {
    const Steps ask{"export", "no dialog"};
    const Steps show{"export", "chosen x", "half a second"};
    const auto after = [](Steps steps, const Steps& more) {
        steps.insert(steps.end(), more.begin(), more.end());
        return steps;
    };
    for (const auto& [steps, expected] : std::vector<std::pair<Steps, std::string>>{
             {{"export"}, "choosing|||"},
             {{"export", "cancelled"}, "idle|||"},
             {ask, "asking shown|~/Hearthmark 2001-01-01.json||"},
             {{"import", "no dialog", "type ~/none", "accept"}, "asking shown|~/none|no file|"},
             {after(ask, {"type ~/not.json", "accept"}), "asking shown|~/not.json|is there|"},
             {after(ask, {"type ~/not.json", "accept", "type not.json", "accept"}),
              "asking shown|not.json|is there|"},
             {after(ask, {"type no/x", "accept"}), "asking shown|no/x|no folder|"},
             {after(ask, {"type ~", "accept"}), "asking shown|~|is folder|"},
             {after(ask, {"type x", "accept"}), "working shown|~/x||"},
             {after(ask, {"dismiss"}), "idle|||"},
             {{"export", "chosen x"}, "working|~/x||"},
             {show, "working shown|~/x||"},
             {after(show, {"dismiss", "half a second"}), "working|~/x||"},
             {after(show, {"dismiss", "import"}), "working shown|~/x||"},
             {after(show, {"dismiss", "finish"}), "idle|||"},
             {{"export", "chosen x", "finish"}, "done shown|~/x||"},
             {{"export", "chosen no/x", "finish"}, "failed shown|~/no/x||The path leads nowhere."},
             {{"import", "chosen not.json", "finish"},
              "failed shown|~/not.json||Line 3: Missing a name for object member."}}) {
        std::filesystem::remove(home / "x");
        for (const std::string& step : steps) {
            act(step);
        }
        const std::string last = testing::PrintToString(steps);
        EXPECT_EQ(shown(), expected) << last;
        EXPECT_EQ(std::filesystem::exists(home / "x"), state().phase == Phase::done) << last;
        EXPECT_EQ(timers->validTimers(), state().phase == Phase::working) << last;
        if (work->work) {
            work->stop();
            work->finish();
        }
        viewModel->dismiss();
    }
    EXPECT_EQ(tests::bytesOf(home / "not.json"), "{\n\n]");
}

TEST_F(FileTransfer, AddsWhatIsNewOnceItIsAgreedToAndOnlyThen) {
    const auto undo = std::make_shared<store::UndoHistory>(store.service);
    const auto tasksAfter = [this](const Steps& steps) {
        for (const std::string& step : steps) {
            act(step);
        }
        return store.sql("SELECT count(*) FROM Task");
    };
    EXPECT_EQ(tasksAfter({"export", "chosen x", "finish", "import", "chosen x", "finish"}), "1");
    EXPECT_TRUE(state().counts.isEmpty());
    EXPECT_EQ(tasksAfter({"delete", "import", "chosen x", "finish", "dismiss", "accept"}), "0");
    EXPECT_EQ(tasksAfter({"import", "chosen x", "finish"}), "0");
    EXPECT_EQ(state().counts.tasks, 1);
    EXPECT_EQ(tasksAfter({"accept"}), "1");
    EXPECT_EQ(state().phase, Phase::done);
    undo->undo();
    EXPECT_EQ(tasksAfter({}), "0");
}

TEST_F(FileTransfer, WritesTheIntervalsOfDaysUnderTheirNames) {
    store.addInterval(store.first<store::Task>(), store::IntervalState::finished());
    constexpr double kDay = 86400;
    using services::FileKind;
    for (const auto& [to, kind, name, begin] :
         {std::tuple(kDay, FileKind::table, "Hearthmark 2001-01-01.csv", "task.id,"),
          std::tuple(3 * kDay, FileKind::calendar, "Hearthmark 2001-01-01 to 2001-01-03.ics",
                     "BEGIN:VCALENDAR")}) {
        viewModel->exportShown(tests::at(0), tests::at(to), kind);
        EXPECT_EQ(chooser->suggested, name);
        act("chosen x");
        act("finish");
        EXPECT_TRUE(tests::bytesOf(home / "x").starts_with(begin));
    }
}

TEST_F(FileTransfer, EndsWhileItsDialogAndItsWorkGoOn) {
    act("export");
    const auto answer = chooser->answer;
    act("chosen x");
    viewModel = nullptr;
    answer({.outcome = FileChoice::Outcome::noDialog, .file = {}});
    work->stop();
    work->finish();
    timers->fire();
    EXPECT_FALSE(std::filesystem::exists(home / "x"));
}

}  // namespace
}  // namespace hearthmark::exporting

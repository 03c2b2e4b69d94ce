// SPDX-License-Identifier: MIT
#pragma once

#include <chrono>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "base/clock.h"
#include "presentation/tasks_list_view_model.h"
#include "services/ports/background_work.h"
#include "services/ports/file_chooser.h"
#include "services/ports/start_at_login.h"
#include "services/ports/time_keeping.h"
#include "services/ports/updater.h"

namespace hearthmark::previews {

// 14 May 2026, 10:40 UTC, for ever, or the same time of an earlier day.
class StoppedClock final : public base::Clock {
 public:
    explicit StoppedClock(std::chrono::days ago = {})
        : now_(base::Date(base::Seconds(800448000)) + -base::Seconds(ago)) {}

    base::Date now() const override { return now_; }

 private:
    base::Date now_;
};

// Timers that never fire.
class StoppedTimeKeepingProvider final : public services::TimeKeepingProviderProtocol {
 public:
    std::shared_ptr<services::TimeKeeping> makeTimer(base::Seconds /*interval*/,
                                                     services::Repeats /*repeats*/,
                                                     std::function<void()> /*action*/) override {
        return std::make_shared<Timer>();
    }

 private:
    class Timer final : public services::TimeKeeping {
     public:
        void invalidate() override {}
    };
};

// An updater that does nothing by itself.
class FakeUpdater final : public services::Updater {
 public:
    void checkForUpdates() override {}
    void install() override {}
    bool showPackage() override { return true; }
    void dismiss() override {}
    livedata::Published<bool>& canCheckForUpdates() override { return canCheck_; }
    livedata::Published<services::UpdateState>& state() override { return state_; }
    const std::string& unavailableReason() const override { return unavailableReason_; }

 private:
    livedata::Published<bool> canCheck_{true};
    livedata::Published<services::UpdateState> state_;
    std::string unavailableReason_;
};

// On, and it stays so.
class FakeStartAtLogin final : public services::StartAtLogin {
 public:
    livedata::Published<services::StartAtLoginState>& state() override { return state_; }
    void refresh() override {}
    void toggle() override {}

 private:
    livedata::Published<services::StartAtLoginState> state_{{.isOn = true}};
};

// A desktop without a dialog for files.
class FakeFileChooser final : public services::FileChooser {
 public:
    void chooseFileToWrite(const std::string& /*title*/, const std::string& /*suggestedName*/,
                           services::FileKind /*kind*/, Answer answer) override {
        answer({.outcome = services::FileChoice::Outcome::noDialog, .file = {}});
    }
    void chooseFileToRead(const std::string& /*title*/, services::FileKind /*kind*/,
                          Answer answer) override {
        answer({.outcome = services::FileChoice::Outcome::noDialog, .file = {}});
    }
};

// Work that never ends.
class FakeBackgroundWork final : public services::BackgroundWork {
 public:
    void run(Work /*work*/, std::function<void()> /*whenDone*/) override {}
    void stop() override {}
};

// Tasks that never come.
class LoadingTaskListViewModel final : public presentation::TaskListViewModelProtocol {
 public:
    livedata::Published<std::optional<presentation::TaskListViewState::View>>& viewState()
        override {
        return viewState_;
    }
    void startObserving() override {}
    void openSearch() override {}
    void search(std::string_view /*typed*/) override {}
    void closeSearch() override {}

 private:
    livedata::Published<std::optional<presentation::TaskListViewState::View>> viewState_;
};

}  // namespace hearthmark::previews

// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <variant>
#include <vector>

#include "base/date.h"
#include "base/uuid.h"

namespace hearthmark::services {

// The newest running interval of a task.
struct RunningFocus {
    base::Uuid taskId;
    // Of a task without one as it is shown; the beginning of what is longer than kLongestName.
    std::string taskName;
    base::Uuid intervalId;
    // When the running stretch began, and what was spent before.
    base::Date start;
    base::Seconds spentBefore;
    // 0 for no limit.
    base::Seconds length;

    bool operator==(const RunningFocus&) const = default;
};

struct FinishedFocus {
    base::Uuid taskId;
    std::string taskName;
    base::Uuid intervalId;
    base::Seconds spent;
};

struct FoundTask {
    base::Uuid id;
    std::string name;
    bool isDone;
};

// Why nothing was done, and as a sentence.
struct FocusRefusal {
    enum class Reason { focusRunning, nothingRuns, noSuchTask, invalidArgument, tooManyCalls };

    Reason reason;
    std::string text;
};

template <class Value>
using FocusAnswer = std::variant<Value, FocusRefusal>;

// What other programs may know of the running focus, and what they may ask for. The window stays as
// it is: no selection changes, nothing opens, nothing typed goes. Whatever they give is looked at
// first, and what is refused changes nothing. Main thread.
class FocusControl {
 public:
    // Characters of a task's name, bytes of a note, characters of what is searched for: more than a
    // person types, and little enough to be shown and sent.
    static constexpr std::size_t kLongestName = 10'000;
    static constexpr std::size_t kLongestNote = 1'000'000;
    static constexpr std::size_t kLongestSearch = 200;
    static constexpr std::size_t kMostFound = 100;

    // Each is called when running() has changed already.
    struct Handlers {
        std::function<void()> changed;
        // A new one: not one that goes on after a launch, or comes back by an undo.
        std::function<void(const RunningFocus&)> started;
        // By hand or by its length, not by a deletion.
        std::function<void(const FinishedFocus&)> finished;
    };

    virtual ~FocusControl() = default;

    // Called once, after the launch has let go on what was paused. What runs then is not told.
    virtual void startObserving(Handlers handlers) = 0;

    // The length is rounded to whole seconds, as what is typed is; so is that of an extension.
    virtual FocusAnswer<base::Uuid> start(const std::string& taskId, base::Seconds length) = 0;
    virtual FocusAnswer<base::Uuid> finish() = 0;
    // Answers the new length.
    virtual FocusAnswer<base::Seconds> extend(base::Seconds by) = 0;
    // White space around a name or a note goes, as in the window.
    virtual FocusAnswer<base::Uuid> addTask(const std::string& name) = 0;
    virtual FocusAnswer<base::Uuid> addNote(const std::string& taskId, const std::string& text) = 0;
    // Those whose name holds all words, the newest first, at most kMostFound; without words all.
    virtual FocusAnswer<std::vector<FoundTask>> findTasks(const std::string& words) = 0;

    // Absent while none runs.
    virtual const std::optional<RunningFocus>& running() const = 0;
};

}  // namespace hearthmark::services

// SPDX-License-Identifier: MIT
#include "ctl/focus_bus.h"

#include <systemd/sd-bus.h>

#include <array>
#include <cerrno>
#include <cstdint>
#include <system_error>
#include <utility>

#include "base/text.h"

namespace hearthmark::ctl {

namespace {

constexpr auto kName = "org.hearthmark.Hearthmark";
constexpr auto kPath = "/org/hearthmark/Hearthmark";
constexpr auto kInterface = "org.hearthmark.Focus";
constexpr auto kProperties = "org.freedesktop.DBus.Properties";
constexpr auto kDaemon = "org.freedesktop.DBus";
constexpr auto kDaemonPath = "/org/freedesktop/DBus";

constexpr std::chrono::seconds kAnswerLimit{5};
// A launch may bring an older store up to date first.
constexpr std::chrono::seconds kLaunchLimit{30};

enum class Activation { no, yes };

constexpr std::uint64_t inMicroseconds(std::chrono::microseconds time) {
    return static_cast<std::uint64_t>(time.count());
}

// Hands on what the bus library answers where that is no failure.
int checked(int result) {
    if (result < 0) {
        throw BusError(BusError::Cause::noBus, "The session bus cannot be used: " +
                                                   std::generic_category().message(-result) + ".");
    }
    return result;
}

BusConnection connected() {
    sd_bus* bus = nullptr;
    const int result = sd_bus_open_user(&bus);
    if (result == -ENOMEDIUM) {
        throw BusError(BusError::Cause::noBus,
                       "There is no session bus: its address is not known.");
    }
    checked(result);
    return BusConnection(bus);
}

std::string textOrEmpty(const char* text) {
    return text != nullptr ? text : "";
}

struct MessageRelease {
    void operator()(sd_bus_message* message) const { sd_bus_message_unref(message); }
};
using Message = std::unique_ptr<sd_bus_message, MessageRelease>;

struct NamedError {
    NamedError() = default;
    NamedError(const NamedError&) = delete;
    NamedError& operator=(const NamedError&) = delete;
    ~NamedError() { sd_bus_error_free(&error); }

    sd_bus_error error = SD_BUS_ERROR_NULL;
};

// A call of the program, built up argument by argument.
class Call {
 public:
    Call(sd_bus* bus, const char* interface, const char* method) : bus_(bus) {
        sd_bus_message* message = nullptr;
        checked(sd_bus_message_new_method_call(bus, &message, kName, kPath, interface, method));
        message_.reset(message);
    }

    Call& text(const std::string& text) {
        if (!base::isValidUtf8(text)) {
            throw BusError(BusError::Cause::other, "This is not text in UTF-8.");
        }
        checked(sd_bus_message_append_basic(message_.get(), SD_BUS_TYPE_STRING, text.c_str()));
        return *this;
    }
    Call& number(double number) {
        checked(sd_bus_message_append_basic(message_.get(), SD_BUS_TYPE_DOUBLE, &number));
        return *this;
    }

    Message answer(Activation activation = Activation::no) {
        checked(sd_bus_message_set_auto_start(message_.get(), activation == Activation::yes));
        NamedError error;
        sd_bus_message* answer = nullptr;
        const int result =
            sd_bus_call(bus_, message_.get(),
                        inMicroseconds(activation == Activation::yes ? kLaunchLimit : kAnswerLimit),
                        &error.error, &answer);
        if (result < 0) {
            throw errorOf({.name = textOrEmpty(error.error.name),
                           .message = textOrEmpty(error.error.message),
                           .error = -result,
                           .startsProgram = activation == Activation::yes});
        }
        return Message(answer);
    }

    // Without waiting; `handle` is called with the answer, an error included.
    sd_bus_slot* send(sd_bus_message_handler_t handle, void* context) {
        checked(sd_bus_message_set_auto_start(message_.get(), 0));
        sd_bus_slot* slot = nullptr;
        checked(sd_bus_call_async(bus_, &slot, message_.get(), handle, context,
                                  inMicroseconds(kLaunchLimit)));
        return slot;
    }

 private:
    sd_bus* bus_;
    Message message_;
};

std::string textIn(sd_bus_message* message) {
    const char* text = nullptr;
    return sd_bus_message_read_basic(message, SD_BUS_TYPE_STRING, static_cast<void*>(&text)) > 0
               ? text
               : "";
}

double numberIn(sd_bus_message* message) {
    double number = 0;
    sd_bus_message_read_basic(message, SD_BUS_TYPE_DOUBLE, &number);
    return number;
}

// Takes over the properties that the message names. What is of another type than it should be is
// passed over.
void readProperties(sd_bus_message* message, ToldFocus& told) {
    const std::array texts{std::pair("TaskId", &told.taskId), std::pair("TaskName", &told.taskName),
                           std::pair("IntervalId", &told.intervalId)};
    const std::array numbers{std::pair("Start", &told.start),
                             std::pair("SpentBefore", &told.spentBefore),
                             std::pair("Length", &told.length)};
    const auto readIf = [message](const auto& properties, const std::string& name, const char* type,
                                  auto read) {
        for (const auto& [property, value] : properties) {
            if (name == property && sd_bus_message_enter_container(message, 'v', type) > 0) {
                *value = read(message);
                sd_bus_message_exit_container(message);
                return true;
            }
        }
        return false;
    };
    if (sd_bus_message_enter_container(message, 'a', "{sv}") <= 0) {
        return;
    }
    while (sd_bus_message_enter_container(message, 'e', "sv") > 0) {
        const std::string name = textIn(message);
        if (!readIf(texts, name, "s", textIn) && !readIf(numbers, name, "d", numberIn)) {
            sd_bus_message_skip(message, "v");
        }
        sd_bus_message_exit_container(message);
    }
    sd_bus_message_exit_container(message);
}

std::optional<FocusStatus> statusOf(const ToldFocus& told) {
    if (told.intervalId.empty()) {
        return std::nullopt;
    }
    return FocusStatus{
        .taskId = told.taskId,
        .taskName = told.taskName,
        .intervalId = told.intervalId,
        .start = base::Date(base::Seconds(told.start) - base::kUnixTimeOfReferenceDate),
        .spentBefore = base::Seconds(told.spentBefore),
        .length = base::Seconds(told.length),
        .isInterrupted = false};
}

}  // namespace

void BusCloser::operator()(sd_bus* bus) const {
    sd_bus_flush_close_unref(bus);
}

void BusCloser::operator()(sd_bus_slot* slot) const {
    sd_bus_slot_unref(slot);
}

FocusBus::FocusBus() : bus_(connected()) {}

bool FocusBus::isProgramRunning() {
    sd_bus_message* message = nullptr;
    checked(sd_bus_call_method(bus_.get(), kDaemon, kDaemonPath, kDaemon, "NameHasOwner", nullptr,
                               &message, "s", kName));
    const Message answer(message);
    int isRunning = 0;
    checked(sd_bus_message_read_basic(answer.get(), SD_BUS_TYPE_BOOLEAN, &isRunning));
    return isRunning != 0;
}

std::optional<FocusStatus> FocusBus::running() {
    const Message answer = Call(bus_.get(), kProperties, "GetAll").text(kInterface).answer();
    ToldFocus told;
    readProperties(answer.get(), told);
    return statusOf(told);
}

std::string FocusBus::startFocus(const std::string& taskId, base::Seconds length) {
    return textIn(Call(bus_.get(), kInterface, "StartFocus")
                      .text(taskId)
                      .number(length.count())
                      .answer(Activation::yes)
                      .get());
}

std::string FocusBus::finish() {
    return textIn(Call(bus_.get(), kInterface, "Finish").answer().get());
}

std::string FocusBus::addTask(const std::string& name) {
    return textIn(Call(bus_.get(), kInterface, "AddTask").text(name).answer().get());
}

std::string FocusBus::addNote(const std::string& taskId, const std::string& text) {
    return textIn(Call(bus_.get(), kInterface, "AddNote").text(taskId).text(text).answer().get());
}

base::Seconds FocusBus::extend(base::Seconds by) {
    return base::Seconds(
        numberIn(Call(bus_.get(), kInterface, "Extend").number(by.count()).answer().get()));
}

// What the bus calls. Each returns 0: the message may go on to others.
class WatchHandlers {
 public:
    static int ownerChanged(sd_bus_message* message, void* context, sd_bus_error* /*error*/) {
        FocusWatch& watch = *static_cast<FocusWatch*>(context);
        textIn(message);
        textIn(message);
        if (textIn(message).empty()) {
            watch.program_ = FocusWatch::Program::absent;
            watch.question_.reset();
        } else {
            watch.program_ = FocusWatch::Program::unknown;
            watch.mustAsk_ = true;
        }
        return 0;
    }

    static int propertiesChanged(sd_bus_message* message, void* context, sd_bus_error* /*error*/) {
        textIn(message);
        readProperties(message, static_cast<FocusWatch*>(context)->told_);
        return 0;
    }

    static int answered(sd_bus_message* message, void* context, sd_bus_error* /*error*/) {
        FocusWatch& watch = *static_cast<FocusWatch*>(context);
        watch.told_ = {};
        if (sd_bus_message_is_method_error(message, nullptr) > 0) {
            watch.program_ = FocusWatch::Program::absent;
        } else {
            watch.program_ = FocusWatch::Program::present;
            readProperties(message, watch.told_);
        }
        return 0;
    }
};

FocusWatch::FocusWatch() : bus_(connected()) {
    checked(sd_bus_add_match_async(
        bus_.get(), nullptr,
        "type='signal',sender='org.freedesktop.DBus',path='/org/freedesktop/DBus',"
        "interface='org.freedesktop.DBus',member='NameOwnerChanged',"
        "arg0='org.hearthmark.Hearthmark'",
        &WatchHandlers::ownerChanged, nullptr, this));
    checked(sd_bus_add_match_async(
        bus_.get(), nullptr,
        "type='signal',sender='org.hearthmark.Hearthmark',path='/org/hearthmark/Hearthmark',"
        "interface='org.freedesktop.DBus.Properties',member='PropertiesChanged',"
        "arg0='org.hearthmark.Focus'",
        &WatchHandlers::propertiesChanged, nullptr, this));
    // After the signals, so that no change falls between.
    askForAll();
}

void FocusWatch::askForAll() {
    program_ = Program::unknown;
    question_.reset(Call(bus_.get(), kProperties, "GetAll")
                        .text(kInterface)
                        .send(&WatchHandlers::answered, this));
}

int FocusWatch::descriptor() const {
    return checked(sd_bus_get_fd(bus_.get()));
}

short FocusWatch::events() const {
    return static_cast<short>(checked(sd_bus_get_events(bus_.get())));
}

std::optional<std::chrono::microseconds> FocusWatch::timeout() const {
    std::uint64_t until = UINT64_MAX;
    checked(sd_bus_get_timeout(bus_.get(), &until));
    return until == UINT64_MAX ? std::nullopt : std::optional(std::chrono::microseconds(until));
}

void FocusWatch::process() {
    while (checked(sd_bus_process(bus_.get(), nullptr)) > 0) {
        // Not within the library's call, through which nothing may be thrown.
        if (std::exchange(mustAsk_, false)) {
            askForAll();
        }
    }
    if (sd_bus_is_open(bus_.get()) <= 0) {
        checked(-ENOTCONN);
    }
}

std::optional<FocusStatus> FocusWatch::running() const {
    return statusOf(told_);
}

}  // namespace hearthmark::ctl

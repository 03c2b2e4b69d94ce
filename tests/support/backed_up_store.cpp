// SPDX-License-Identifier: MIT
#include "support/backed_up_store.h"

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <optional>
#include <vector>

#include "base/calendar.h"
#include "store/persistent_container_factory.h"

namespace hearthmark::tests {

namespace {

using namespace std::chrono_literals;

struct UtcCalendar final : base::Calendar {
    std::vector<base::Date> dayStarts(base::Date, int) const override { return {}; }
    std::optional<base::Date> dayStart(std::chrono::year_month_day) const override { return {}; }
    std::vector<base::Date> moments(const base::LocalTime&) const override { return {}; }
    std::optional<base::LocalTime> localTime(base::Date date) const override {
        const auto seconds =
            std::chrono::duration_cast<std::chrono::seconds>(date.sinceReferenceDate());
        const auto days = std::chrono::floor<std::chrono::days>(seconds);
        return base::LocalTime{base::kReferenceDay + days, seconds - days};
    }
};

}  // namespace

BackedUpStore::BackedUpStore()
    : backups(std::make_shared<store::StoreBackups>(directory.path, clock,
                                                    std::make_shared<UtcCalendar>())) {}

void BackedUpStore::setDay(int day) const {
    clock->time = at(0) + base::Seconds(day * 24h + 1h);
}

void BackedUpStore::begin(int day) const {
    setDay(day);
    backups->keepDaily();
}

std::string BackedUpStore::content() const {
    return sql("SELECT id, name FROM Task; SELECT id, text FROM Note; SELECT id FROM Interval");
}

std::string BackedUpStore::names() const {
    std::string names;
    for (const store::StoreBackup& backup : backups->all()) {
        names += backup.file.stem().string().substr(sizeof "Hearthmark") + ' ';
    }
    return names;
}

bool BackedUpStore::isKept(const std::string& bytes) const {
    const std::filesystem::recursive_directory_iterator files(directory.path);
    return std::ranges::any_of(files, [&](const auto& entry) {
        return entry.is_regular_file() && bytesOf(entry.path()) == bytes;
    });
}

std::string BackedUpStore::launchMessage() const {
    const std::filesystem::path log = directory.path / "log";
    const pid_t child = ::fork();
    if (child == 0) {
        ::dup2(::open(log.c_str(), O_CREAT | O_TRUNC | O_WRONLY, 0600), STDERR_FILENO);
        store::PersistentContainerFactory(backups, base::FatalErrorHandler()).makeContainer();
        ::_exit(EXIT_SUCCESS);
    }
    int status = 0;
    ::waitpid(child, &status, 0);
    return WIFSIGNALED(status) ? bytesOf(log) : "";
}

std::string commandIn(const std::string& message) {
    const auto command = message.find("cd '");
    return command == std::string::npos ? "false" : message.substr(command);
}

int type(const std::string& command) {
    return std::system(("exec >&- 2>&-; " + command).c_str());
}

}  // namespace hearthmark::tests

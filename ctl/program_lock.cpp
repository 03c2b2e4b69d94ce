// SPDX-License-Identifier: MIT
#include "ctl/program_lock.h"

#include <sys/stat.h>
#include <sys/sysmacros.h>

#include <algorithm>
#include <charconv>
#include <fstream>
#include <optional>
#include <string>
#include <string_view>
#include <system_error>
#include <vector>

namespace hearthmark::ctl {

namespace {

constexpr auto kFileName = "Hearthmark.lock";

// A line of /proc/locks: "1: FLOCK  ADVISORY  WRITE 23704 fe:00:10954060 0 EOF".
struct Lock {
    std::string process;
    unsigned int major = 0;
    unsigned int minor = 0;
    ino_t inode = 0;
};

template <class Number>
bool take(std::string_view& text, Number& number, int base) {
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number, base);
    text.remove_prefix(static_cast<std::size_t>(end - text.data()));
    text.remove_prefix(text.starts_with(':') ? 1 : 0);
    return error == std::errc();
}

std::optional<Lock> lockIn(const std::string& line) {
    std::vector<std::string_view> words;
    for (std::string_view rest = line; !rest.empty();) {
        const std::size_t begin = std::min(rest.find_first_not_of(' '), rest.size());
        const std::size_t end = std::min(rest.find(' ', begin), rest.size());
        words.push_back(rest.substr(begin, end - begin));
        rest.remove_prefix(end);
    }
    constexpr int kHexadecimal = 16;
    constexpr int kDecimal = 10;
    if (words.size() < 6 || words[1] != "FLOCK") {  // who waits for one has "->" there
        return std::nullopt;
    }
    Lock lock{.process = std::string(words[4])};
    std::string_view file = words[5];
    const bool isRead = take(file, lock.major, kHexadecimal) &&
                        take(file, lock.minor, kHexadecimal) && take(file, lock.inode, kDecimal);
    return isRead ? std::optional(std::move(lock)) : std::nullopt;
}

// Some file systems have devices of their own for what the kernel knows by another one.
bool hasOpen(const std::string& process, const struct stat& file) {
    std::error_code error;
    for (std::filesystem::directory_iterator each("/proc/" + process + "/fd", error), end;
         !error && each != end; each.increment(error)) {
        struct stat status {};
        if (::stat(each->path().c_str(), &status) == 0 && status.st_dev == file.st_dev &&
            status.st_ino == file.st_ino) {
            return true;
        }
    }
    return false;
}

}  // namespace

bool isProgramRunning(const std::filesystem::path& directory) {
    struct stat file {};
    if (::stat((directory / kFileName).c_str(), &file) != 0) {
        return false;
    }
    std::ifstream locks("/proc/locks");
    for (std::string line; std::getline(locks, line);) {
        const auto lock = lockIn(line);
        if (!lock || lock->inode != file.st_ino) {
            continue;
        }
        const bool isOnDevice =
            lock->major == major(file.st_dev) && lock->minor == minor(file.st_dev);
        if (isOnDevice || hasOpen(lock->process, file)) {
            return true;
        }
    }
    return false;
}

}  // namespace hearthmark::ctl

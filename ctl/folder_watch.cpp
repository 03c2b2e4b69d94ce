// SPDX-License-Identifier: MIT
#include "ctl/folder_watch.h"

#include <sys/inotify.h>
#include <sys/types.h>

#include <array>
#include <cstddef>
#include <cstring>

namespace hearthmark::ctl {

namespace {

constexpr std::size_t kRoom = 4096;

}  // namespace

FolderWatch::FolderWatch(const std::filesystem::path& folder, std::uint32_t events)
    : descriptor_(::inotify_init1(IN_CLOEXEC | IN_NONBLOCK), "inotify_init1") {
    if (::inotify_add_watch(descriptor_.get(), folder.c_str(), events | IN_ONLYDIR) < 0 &&
        errno != ENOENT && errno != ENOTDIR) {
        throw std::system_error(errno, std::generic_category(), "inotify_add_watch");
    }
}

void FolderWatch::read(const std::function<void(std::string_view, std::uint32_t)>& visit) {
    alignas(inotify_event) std::array<char, kRoom> room{};
    for (ssize_t count = 0; (count = ::read(descriptor_.get(), room.data(), room.size())) > 0;) {
        const char* const end = room.data() + count;
        for (const char* next = room.data(); next < end;) {
            inotify_event event{};
            std::memcpy(&event, next, sizeof event);
            next += sizeof event;
            // Its name is padded with zeros.
            visit(event.len > 0 ? std::string_view(next) : std::string_view(), event.mask);
            next += event.len;
        }
    }
}

}  // namespace hearthmark::ctl

// SPDX-License-Identifier: MIT
#include "support/fault_vfs.h"

#include <algorithm>
#include <utility>

#include "support/test_store.h"

namespace hearthmark::tests {

namespace {

constexpr std::size_t kSector = 512;

void writeAt(std::string& content, sqlite3_int64 offset, const std::string& bytes) {
    const auto begin = static_cast<std::size_t>(offset);
    content.resize(std::max(content.size(), begin + bytes.size()));
    content.replace(begin, bytes.size(), bytes);
}

}  // namespace

// As SQLite sees it: the base first; the file of the usual system stands behind.
struct FaultVfs::File {
    sqlite3_file base;
    FaultVfs* owner;
    // SQLite's, as long as the file is open; null for one that goes when it is closed.
    const char* path;

    std::string name() const {
        return path != nullptr ? std::filesystem::path(path).filename().string() : "";
    }
    static File& of(sqlite3_file* file) { return *reinterpret_cast<File*>(file); }
    sqlite3_file* real() { return reinterpret_cast<sqlite3_file*>(this + 1); }
};

struct FaultVfs::Methods {
    static int open(sqlite3_vfs* vfs, const char* name, sqlite3_file* opened, int flags, int* out) {
        auto* owner = static_cast<FaultVfs*>(vfs->pAppData);
        File& file = File::of(opened);
        file.base.pMethods = nullptr;
        const int result = owner->real_->xOpen(owner->real_, name, file.real(), flags, out);
        if (result == SQLITE_OK) {
            file.owner = owner;
            file.path = name;
            file.base.pMethods = &kFile;
        }
        return result;
    }

    static int remove(sqlite3_vfs* vfs, const char* name, int syncDirectory) {
        auto* owner = static_cast<FaultVfs*>(vfs->pAppData);
        owner->note(Event::Kind::remove, std::filesystem::path(name).filename().string(), 0, {});
        return owner->real_->xDelete(owner->real_, name, syncDirectory);
    }

    static int write(sqlite3_file* file, const void* from, int amount, sqlite3_int64 offset) {
        File& self = File::of(file);
        FaultVfs& owner = *self.owner;
        if (owner.fails(Call::write)) {
            if (owner.fault_ == Fault::shortWrite) {
                self.real()->pMethods->xWrite(self.real(), from, amount / 2, offset);
            }
            return owner.fault_ == Fault::ioError ? SQLITE_IOERR_WRITE : SQLITE_FULL;
        }
        owner.note(Event::Kind::write, self.name(), offset,
                   {static_cast<const char*>(from), static_cast<std::size_t>(amount)});
        return self.real()->pMethods->xWrite(self.real(), from, amount, offset);
    }

    static int truncate(sqlite3_file* file, sqlite3_int64 size) {
        File& self = File::of(file);
        if (self.owner->fails(Call::truncate)) {
            return SQLITE_IOERR_TRUNCATE;
        }
        self.owner->note(Event::Kind::truncate, self.name(), size, {});
        return self.real()->pMethods->xTruncate(self.real(), size);
    }

    // To the record alone: the machine itself is not to be cut off.
    static int sync(sqlite3_file* file, int /*flags*/) {
        File& self = File::of(file);
        if (self.owner->fails(Call::sync)) {
            return SQLITE_IOERR_FSYNC;
        }
        self.owner->note(Event::Kind::sync, self.name(), 0, {});
        return SQLITE_OK;
    }

    // Passes a call on as it is.
    template <auto Method, class... Arguments>
    static auto pass(sqlite3_file* file, Arguments... arguments) {
        sqlite3_file* real = File::of(file).real();
        return (real->pMethods->*Method)(real, arguments...);
    }

    // The same for one that may fail.
    template <Call Kind, int Error, auto Method, class... Arguments>
    static int failOrPass(sqlite3_file* file, Arguments... arguments) {
        return File::of(file).owner->fails(Kind) ? Error : pass<Method>(file, arguments...);
    }

    static const sqlite3_io_methods kFile;
};

const sqlite3_io_methods FaultVfs::Methods::kFile{
    .iVersion = 2,
    .xClose = &Methods::pass<&sqlite3_io_methods::xClose>,
    .xRead = &Methods::failOrPass<Call::read, SQLITE_IOERR_READ, &sqlite3_io_methods::xRead, void*,
                                  int, sqlite3_int64>,
    .xWrite = &Methods::write,
    .xTruncate = &Methods::truncate,
    .xSync = &Methods::sync,
    .xFileSize = &Methods::pass<&sqlite3_io_methods::xFileSize, sqlite3_int64*>,
    .xLock = &Methods::failOrPass<Call::lock, SQLITE_IOERR_LOCK, &sqlite3_io_methods::xLock, int>,
    .xUnlock = &Methods::pass<&sqlite3_io_methods::xUnlock, int>,
    .xCheckReservedLock = &Methods::pass<&sqlite3_io_methods::xCheckReservedLock, int*>,
    .xFileControl = &Methods::pass<&sqlite3_io_methods::xFileControl, int, void*>,
    .xSectorSize = &Methods::pass<&sqlite3_io_methods::xSectorSize>,
    .xDeviceCharacteristics = [](sqlite3_file*) { return 0; },
    .xShmMap = &Methods::pass<&sqlite3_io_methods::xShmMap, int, int, int, void volatile**>,
    .xShmLock = &Methods::failOrPass<Call::lock, SQLITE_IOERR_SHMLOCK,
                                     &sqlite3_io_methods::xShmLock, int, int, int>,
    .xShmBarrier = &Methods::pass<&sqlite3_io_methods::xShmBarrier>,
    .xShmUnmap = &Methods::pass<&sqlite3_io_methods::xShmUnmap, int>,
    .xFetch = nullptr,
    .xUnfetch = nullptr};

FaultVfs::FaultVfs() : real_(sqlite3_vfs_find(nullptr)) {
    vfs_ = *real_;
    vfs_.pNext = nullptr;
    vfs_.zName = "fault";
    vfs_.szOsFile = static_cast<int>(sizeof(File)) + real_->szOsFile;
    vfs_.pAppData = this;
    vfs_.xOpen = &Methods::open;
    vfs_.xDelete = &Methods::remove;
    // Nobody else is there to be waited for.
    vfs_.xSleep = [](sqlite3_vfs* /*vfs*/, int microseconds) { return microseconds; };
    sqlite3_vfs_register(&vfs_, 1);
}

FaultVfs::~FaultVfs() {
    sqlite3_vfs_unregister(&vfs_);
}

void FaultVfs::record(const std::filesystem::path& directory) {
    beginning_ = filesOf(directory);
    // An index that SQLite makes anew.
    std::erase_if(beginning_, [](const auto& file) { return file.first.ends_with("-shm"); });
    isRecording_ = true;
}

FaultVfs::Image FaultVfs::imageAfterCut(std::size_t events, std::mt19937& dice) const {
    std::map<std::string, std::size_t> synced;
    for (std::size_t each = 0; each < events; ++each) {
        if (events_[each].kind == Event::Kind::sync) {
            synced[events_[each].file] = each;
        }
    }
    const auto chance = [&dice](int percent) {
        return std::uniform_int_distribution<>(0, 99)(dice) < percent;
    };
    Image image = beginning_;
    for (std::size_t each = 0; each < events; ++each) {
        const Event& event = events_[each];
        const auto last = synced.find(event.file);
        const bool isSynced = last != synced.end() && each < last->second;
        // What was not synced is there, or is not, or in part.
        if (!isSynced && chance(33)) {
            continue;
        }
        std::string& content = image[event.file];
        if (event.kind == Event::Kind::truncate) {
            content.resize(static_cast<std::size_t>(event.offset));
        } else if (event.kind == Event::Kind::remove) {
            image.erase(event.file);
        } else if (event.kind == Event::Kind::write) {
            const bool isTorn = !isSynced && chance(50);
            for (std::size_t begin = 0; begin < event.bytes.size(); begin += kSector) {
                if (!isTorn || chance(50)) {
                    writeAt(content, event.offset + static_cast<sqlite3_int64>(begin),
                            event.bytes.substr(begin, kSector));
                }
            }
        }
    }
    return image;
}

void FaultVfs::failOnce(Call call, int after, Fault fault) {
    failing_ = call;
    callsUntilFault_ = after;
    fault_ = fault;
    hasFailed_ = false;
}

void FaultVfs::note(Event::Kind kind, const std::string& file, sqlite3_int64 offset,
                    std::string bytes) {
    if (isRecording_) {
        events_.push_back({kind, file, offset, std::move(bytes), returned_});
    }
}

bool FaultVfs::fails(Call call) {
    if (call != failing_ || callsUntilFault_ < 0 || callsUntilFault_-- > 0) {
        return false;
    }
    hasFailed_ = true;
    return true;
}

}  // namespace hearthmark::tests

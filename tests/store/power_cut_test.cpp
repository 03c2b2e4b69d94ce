// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <iostream>
#include <map>
#include <random>
#include <string>
#include <vector>

#include "support/fault_vfs.h"
#include "support/random_operations.h"
#include "support/test_store.h"

namespace hearthmark::store {
namespace {

using tests::FaultVfs;

constexpr std::size_t kSector = 512;
constexpr int kOperations = 300;
// Of the file after a cut; HEARTHMARK_POWER_CUTS says otherwise.
constexpr int kCuts = 2000;

int cuts() {
    const char* const wanted = std::getenv("HEARTHMARK_POWER_CUTS");
    return wanted != nullptr ? std::atoi(wanted) : kCuts;
}

// All that is in the store, as another program reads it.
std::string contentOf(const std::filesystem::path& directory) {
    std::string content;
    for (const char* table : {"Task", "Interval", "RawIntervalState", "Note"}) {
        content += tests::sql(directory / "Hearthmark.sqlite",
                              std::string("SELECT * FROM ") + table + " ORDER BY pk") +
                   '\n';
    }
    return content;
}

void writeAt(std::string& content, sqlite3_int64 offset, const std::string& bytes) {
    const auto begin = static_cast<std::size_t>(offset);
    content.resize(std::max(content.size(), begin + bytes.size()));
    content.replace(begin, bytes.size(), bytes);
}

// The files after a power cut that came after so many events. What was synced is there; of each
// later write all, nothing or some sectors.
FaultVfs::Image imageAfterCut(const FaultVfs& vfs, std::size_t events, std::mt19937& dice) {
    std::map<std::string, std::size_t> synced;
    for (std::size_t each = 0; each < events; ++each) {
        if (vfs.events()[each].kind == FaultVfs::Event::Kind::sync) {
            synced[vfs.events()[each].file] = each;
        }
    }
    const auto chance = [&dice](int percent) {
        return std::uniform_int_distribution<>(0, 99)(dice) < percent;
    };
    FaultVfs::Image image = vfs.beginning();
    for (std::size_t each = 0; each < events; ++each) {
        const FaultVfs::Event& event = vfs.events()[each];
        const auto last = synced.find(event.file);
        const bool isSynced = last != synced.end() && each < last->second;
        // What was not synced is there, or is not, or in part.
        if (!isSynced && chance(33)) {
            continue;
        }
        std::string& content = image[event.file];
        if (event.kind == FaultVfs::Event::Kind::truncate) {
            content.resize(static_cast<std::size_t>(event.offset));
        } else if (event.kind == FaultVfs::Event::Kind::remove) {
            image.erase(event.file);
        } else if (event.kind == FaultVfs::Event::Kind::write) {
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

void write(const FaultVfs::Image& image, const std::filesystem::path& directory) {
    for (const auto& [name, content] : image) {
        std::ofstream(directory / name, std::ios::binary) << content;
    }
}

// A cut between any two changes of the files, with what was not synced there, gone or torn.
TEST(PowerCut, LosesNoOperationThatReturnedAndKeepsNoneInPart) {
    FaultVfs vfs;
    const tests::TemporaryDirectory directory;
    std::vector<std::string> contents;
    {
        const auto container = tests::open(directory.path);
        vfs.record(directory.path);
        tests::RandomOperations operations(container, 1, [](const std::string&) {});
        contents.push_back(contentOf(directory.path));
        for (int returned = 1; returned <= kOperations; ++returned) {
            operations.doOne();
            vfs.setReturned(returned);
            contents.push_back(contentOf(directory.path));
        }
    }
    vfs.stop();
    const std::size_t events = vfs.events().size();
    std::mt19937 dice(1);
    int unreturned = 0;
    for (int cut = 0; cut < cuts(); ++cut) {
        const tests::TemporaryDirectory after;
        const auto before = std::uniform_int_distribution<std::size_t>(0, events)(dice);
        write(imageAfterCut(vfs, before, dice), after.path);
        const auto returned =
            static_cast<std::size_t>(before == 0 ? 0 : vfs.events()[before - 1].returned);
        tests::open(after.path).reset();  // checks the file's integrity
        const std::string content = contentOf(after.path);
        const bool isNext = returned < kOperations && content == contents[returned + 1];
        unreturned += isNext && content != contents[returned] ? 1 : 0;
        ASSERT_TRUE(isNext || content == contents[returned])
            << "cut " << cut << " after " << before << " of " << events << " changes, by when "
            << returned << " operations had returned";
    }
    std::cout << cuts() << " cuts among " << events << " changes of the files; in " << unreturned
              << " the operation under way was there, whole\n";
}

}  // namespace
}  // namespace hearthmark::store

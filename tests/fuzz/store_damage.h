// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <utility>
#include <vector>

#include "support/test_store.h"

namespace hearthmark::fuzz {

// What is in a file with rows of every kind, made by the program's own code, but in small pages, of
// which little is not used. Closes the store.
std::string soundFile(tests::TestStore& store);

// What programs that know nothing of a store, or a disk, do to its file; drawn from a fuzzer's
// bytes.
struct StoreDamage {
    explicit StoreDamage(std::span<const std::uint8_t> bytes);

    // Puts the file with this content in its place, and damages it.
    void apply(const std::string& content, const std::filesystem::path& file) const;

    // SQL, each for itself: SQLite refuses some.
    std::vector<std::string> statements;
    // At an offset, modulo the size of the file, after the statements.
    std::vector<std::pair<std::uint16_t, std::string>> overwrites;
    // The file is sound and the tables are ours, whatever their rows.
    bool isOfRowsAlone;
};

}  // namespace hearthmark::fuzz

// SPDX-License-Identifier: MIT
#include "base/found_ranges.h"

#include <algorithm>
#include <cstdint>

#include "base/folding.h"

namespace hearthmark::base {

namespace {

// A text's fold with the way back.
class FoldedText {
 public:
    explicit FoldedText(std::string_view text) : size_(text.size()) {
        fold_.reserve(text.size());
        origins_.reserve(text.size());
        for (std::size_t at = 0; at < text.size();) {
            const std::size_t begin = at;
            at = foldNext(text, at, fold_);
            origins_.resize(fold_.size(), static_cast<std::uint32_t>(begin));
        }
    }

    const std::string& fold() const { return fold_; }

    // Of a part of the fold that is not empty.
    TextRange original(std::size_t begin, std::size_t end) const {
        const auto next = std::upper_bound(origins_.begin() + static_cast<std::ptrdiff_t>(end - 1),
                                           origins_.end(), origins_[end - 1]);
        return {.begin = origins_[begin], .end = next == origins_.end() ? size_ : *next};
    }

 private:
    std::size_t size_;
    std::string fold_;
    // Where the character begins of which each byte of the fold is.
    std::vector<std::uint32_t> origins_;
};

std::vector<TextRange> merged(std::vector<TextRange> ranges) {
    std::ranges::sort(ranges, {}, &TextRange::begin);
    std::vector<TextRange> result;
    for (const TextRange& range : ranges) {
        if (!result.empty() && range.begin <= result.back().end) {
            result.back().end = std::max(result.back().end, range.end);
        } else {
            result.push_back(range);
        }
    }
    return result;
}

}  // namespace

std::vector<TextRange> rangesOfWords(std::string_view text, const std::vector<std::string>& words) {
    const FoldedText folded(text);
    std::vector<TextRange> ranges;
    for (const std::string& word : words) {
        for (std::size_t found = folded.fold().find(word); found != std::string::npos;
             found = folded.fold().find(word, found + 1)) {
            ranges.push_back(folded.original(found, found + word.size()));
        }
    }
    return merged(std::move(ranges));
}

}  // namespace hearthmark::base

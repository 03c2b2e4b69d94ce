// SPDX-License-Identifier: MIT
#include "base/text.h"

#include <unicode/uchar.h>
#include <unicode/ustring.h>
#include <unicode/utext.h>

#include <cstddef>
#include <stdexcept>

namespace hearthmark::base {

namespace {

constexpr UChar32 kReplacement = 0xFFFD;

// A cursor over the characters of a UTF-8 text; what is not valid reads as U+FFFD.
class Cursor {
 public:
    explicit Cursor(std::string_view text) {
        UErrorCode error = U_ZERO_ERROR;
        utext_openUTF8(&text_, text.data(), static_cast<int64_t>(text.size()), &error);
        if (U_FAILURE(error) != 0) {
            throw std::runtime_error(u_errorName(error));
        }
    }
    Cursor(const Cursor&) = delete;
    Cursor& operator=(const Cursor&) = delete;
    ~Cursor() { utext_close(&text_); }

    // The byte offset behind the white space at the beginning.
    std::size_t endOfLeadingSpace() { return skip(&utext_next32); }

    // The byte offset before the white space at the end.
    std::size_t beginOfTrailingSpace() {
        utext_setNativeIndex(&text_, utext_nativeLength(&text_));
        return skip(&utext_previous32);
    }

 private:
    // Steps over white space and tells the offset that was reached.
    std::size_t skip(UChar32 (*step)(UText*)) {
        int64_t reached = utext_getNativeIndex(&text_);
        for (UChar32 c = step(&text_); c != U_SENTINEL && u_isUWhiteSpace(c) != 0;
             c = step(&text_)) {
            reached = utext_getNativeIndex(&text_);
        }
        return static_cast<std::size_t>(reached);
    }

    UText text_ = UTEXT_INITIALIZER;
};

}  // namespace

std::string_view trimmed(std::string_view text) {
    Cursor cursor(text);
    const std::size_t begin = cursor.endOfLeadingSpace();
    if (begin == text.size()) {
        return {};
    }
    return text.substr(begin, cursor.beginOfTrailingSpace() - begin);
}

bool isValidUtf8(std::string_view text) {
    // Without room for a result it only measures, and so looks at every byte.
    int32_t length = 0;
    UErrorCode error = U_ZERO_ERROR;
    u_strFromUTF8(nullptr, 0, &length, text.data(), static_cast<int32_t>(text.size()), &error);
    return U_SUCCESS(error) != 0 || error == U_BUFFER_OVERFLOW_ERROR;
}

std::string withValidUtf8(std::string_view text) {
    std::string valid(text);
    if (isValidUtf8(text)) {
        return valid;
    }
    UErrorCode error = U_ZERO_ERROR;
    std::u16string units(text.size(), u'\0');
    int32_t length = 0;
    u_strFromUTF8WithSub(units.data(), static_cast<int32_t>(units.size()), &length, text.data(),
                         static_cast<int32_t>(text.size()), kReplacement, nullptr, &error);
    // Three bytes at most for each unit.
    valid.resize(static_cast<std::size_t>(length) * 3);
    int32_t size = 0;
    u_strToUTF8(valid.data(), static_cast<int32_t>(valid.size()), &size, units.data(), length,
                &error);
    if (U_FAILURE(error) != 0) {
        throw std::runtime_error(u_errorName(error));
    }
    valid.resize(static_cast<std::size_t>(size));
    return valid;
}

}  // namespace hearthmark::base

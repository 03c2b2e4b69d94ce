// SPDX-License-Identifier: MIT
#include "export/everything_reader.h"

#include <fcntl.h>
#include <sys/stat.h>

#include <rapidjson/error/en.h>
#include <rapidjson/reader.h>
#include <cerrno>

#include <algorithm>
#include <functional>
#include <optional>
#include <utility>

#include "export/everything_interpreter.h"
#include "export/file_fault.h"
#include "objectstore/file_descriptor.h"
#include "objectstore/store_error.h"

namespace hearthmark::exporting {

namespace {

using objectstore::StoreError;
using Outcome = EverythingRead::Outcome;

constexpr std::size_t kBlock = 65536;
constexpr auto kTooLarge = "The file is larger than 512 MiB. That is more than can be imported.";

EverythingRead refusal(std::string reason) {
    return {.outcome = Outcome::refused, .tasks = {}, .reason = std::move(reason)};
}

// NOLINTBEGIN(readability-identifier-naming, readability-convert-member-functions-to-static): as
// the library calls them

// What the parser reads from: bytes, and which line they are on.
class Source {
 public:
    using Ch = char;
    // Gives the next bytes, which stay until the next call; none at the end.
    using Refill = std::function<std::string_view()>;

    explicit Source(Refill refill) : refill_(std::move(refill)), rest_(refill_()) {}

    // A NUL at the end, which only isAtEnd() tells from one that is there.
    char Peek() const { return rest_.empty() ? '\0' : rest_.front(); }
    char Take() {
        const char taken = Peek();
        line_ += taken == '\n' ? 1 : 0;
        ++offset_;
        if (!rest_.empty()) {
            rest_.remove_prefix(1);
            if (rest_.empty()) {
                rest_ = refill_();
            }
        }
        return taken;
    }
    std::size_t Tell() const { return offset_; }

    // For parsers that write into what they read.
    char* PutBegin() { return nullptr; }
    void Put(char /*unused*/) {}
    void Flush() {}
    std::size_t PutEnd(char* /*unused*/) { return 0; }

    bool isAtEnd() const { return rest_.empty(); }
    const std::size_t& line() const { return line_; }

 private:
    Refill refill_;
    std::string_view rest_;
    std::size_t line_ = 1;
    std::size_t offset_ = 0;
};

// Hands what the parser finds on to the interpreter.
struct Handler {
    bool Null() const { return interpreter.takeOther(); }
    bool Bool(bool /*unused*/) const { return interpreter.takeOther(); }
    bool RawNumber(const char* digits, std::size_t size, bool /*unused*/) const {
        return interpreter.takeNumber({digits, size});
    }
    bool String(const char* text, std::size_t size, bool /*unused*/) const {
        return interpreter.takeText({text, size});
    }
    bool Key(const char* key, std::size_t size, bool /*unused*/) const {
        return interpreter.takeKey({key, size});
    }
    bool StartObject() const { return interpreter.beginObject(); }
    bool EndObject(std::size_t /*unused*/) const { return interpreter.endObject(); }
    bool StartArray() const { return interpreter.beginArray(); }
    bool EndArray(std::size_t /*unused*/) const { return interpreter.endArray(); }
    // Numbers come as they stand; these are never called.
    bool Int(int /*unused*/) const { return false; }
    bool Uint(unsigned /*unused*/) const { return false; }
    bool Int64(std::int64_t /*unused*/) const { return false; }
    bool Uint64(std::uint64_t /*unused*/) const { return false; }
    bool Double(double /*unused*/) const { return false; }

    EverythingInterpreter& interpreter;
};

// NOLINTEND(readability-identifier-naming, readability-convert-member-functions-to-static)

EverythingRead interpret(Source& source) {
    if (source.isAtEnd()) {
        return refusal("The file is empty.");
    }
    EverythingInterpreter interpreter(source.line());
    Handler handler{interpreter};
    rapidjson::Reader parser;
    // Numbers by our own reader, so that each double comes back as it was written. The parser calls
    // itself for what is nested, and ends where the interpreter knows of nothing so deep.
    const rapidjson::ParseResult result =
        parser.Parse<rapidjson::kParseNumbersAsStringsFlag>(source, handler);
    if (!interpreter.fault().empty()) {
        return refusal(interpreter.fault());
    }
    const std::string line = "Line " + std::to_string(source.line()) + ": ";
    if (result.IsError() && !interpreter.hasBegun()) {
        return refusal(line + kNotOfEverything);
    }
    if (result.IsError()) {
        return refusal(line + (source.isAtEnd() ? "The file ends too early."
                                                : rapidjson::GetParseError_En(result.Code())));
    }
    if (!source.isAtEnd()) {
        return refusal(line + "After the end of the document there is more.");
    }
    if (!interpreter.finish()) {
        return refusal(interpreter.fault());
    }
    return {.outcome = Outcome::read, .tasks = std::move(interpreter.tasks()), .reason = {}};
}

// The size of a file. Looked at before it is opened, which waits for ever where it is a pipe.
std::uint64_t sizeOf(const std::filesystem::path& file) {
    struct stat status {};
    if (::stat(file.c_str(), &status) != 0) {
        throw StoreError::ofCall("stat", file, errno);
    }
    if (!S_ISREG(status.st_mode)) {
        throw StoreError::ofCall("stat", file, EISDIR);
    }
    return static_cast<std::uint64_t>(status.st_size);
}

}  // namespace

EverythingRead readEverything(std::string_view document) {
    Source source([&document] { return std::exchange(document, {}); });
    return interpret(source);
}

EverythingRead readEverything(const std::filesystem::path& file, const FileWork& work) {
    try {
        const std::uint64_t size = sizeOf(file);
        if (size > kMostBytesRead) {
            return refusal(kTooLarge);
        }
        const objectstore::FileDescriptor opened(file, O_RDONLY);
        std::string block(kBlock, '\0');
        std::uint64_t count = 0;
        bool isCancelled = false;
        const auto refill = [&]() -> std::string_view {
            isCancelled = isCancelled || (work.isCancelled && work.isCancelled());
            if (isCancelled || count > kMostBytesRead) {
                return {};
            }
            const std::size_t read = opened.read(block.data(), block.size());
            count += read;
            if (work.tellProgress) {
                work.tellProgress(std::min(
                    1.0, static_cast<double>(count) / static_cast<double>(std::max(size, count))));
            }
            return std::string_view(block).substr(0, read);
        };
        Source source(refill);
        EverythingRead result = interpret(source);
        if (count > kMostBytesRead) {
            return refusal(kTooLarge);  // it has grown
        }
        if (isCancelled) {
            return {.outcome = Outcome::cancelled, .tasks = {}, .reason = {}};
        }
        return result;
    } catch (const StoreError& error) {
        return refusal(reasonOf(error, file));
    }
}

}  // namespace hearthmark::exporting

// SPDX-License-Identifier: MIT
#include "store/interval_state_coding.h"

#include <array>
#include <cmath>
#include <nlohmann/json.hpp>
#include <optional>
#include <utility>

namespace hearthmark::store {

namespace {

using Json = nlohmann::ordered_json;

constexpr auto kPaused = "paused";
constexpr auto kRunning = "running";
constexpr auto kFinished = "finished";
constexpr auto kStarted = "started";
constexpr auto kVisited = "visited";

double encoded(base::Date date) {
    const double seconds = date.sinceReferenceDate().count();
    if (!std::isfinite(seconds)) {
        throw std::domain_error("A date that is not finite cannot be encoded.");
    }
    return seconds;
}

void requireObject(const Json& json, std::vector<std::string> path) {
    if (!json.is_object()) {
        throw DecodingError(DecodingError::Kind::typeMismatch, "Expected a keyed container.",
                            std::move(path));
    }
}

base::Date decodeDate(const Json& json, const char* key) {
    if (!json.is_number()) {
        throw DecodingError(DecodingError::Kind::typeMismatch, "Expected a number of seconds.",
                            {kRunning, key});
    }
    return base::Date(base::Seconds(json.get<double>()));
}

IntervalState decodeRunning(const Json& fields) {
    const auto started = fields.find(kStarted);
    if (started == fields.end()) {
        throw DecodingError(DecodingError::Kind::keyNotFound,
                            "No value associated with key \"started\".", {kRunning, kStarted});
    }
    const base::Date startedDate = decodeDate(*started, kStarted);
    const auto visited = fields.find(kVisited);
    std::optional<base::Date> visitedDate;
    if (visited != fields.end() && !visited->is_null()) {
        visitedDate = decodeDate(*visited, kVisited);
    }
    return IntervalState::running(startedDate, visitedDate);
}

}  // namespace

DecodingError::DecodingError(Kind kind, const std::string& debugDescription,
                             std::vector<std::string> codingPath)
    : std::runtime_error(debugDescription), kind_(kind), codingPath_(std::move(codingPath)) {}

std::string encodeIntervalState(const IntervalState& state) {
    Json fields = Json::object();
    if (const IntervalState::Running* running = state.asRunning()) {
        fields[kStarted] = encoded(running->started);
        if (running->visited) {
            fields[kVisited] = encoded(*running->visited);
        }
    }
    const char* name = state.isPaused() ? kPaused : state.isRunning() ? kRunning : kFinished;
    return Json{{name, std::move(fields)}}.dump();
}

IntervalState decodeIntervalState(std::string_view json) {
    const Json top = Json::parse(json, nullptr, /*allow_exceptions=*/false);
    if (top.is_discarded()) {
        throw DecodingError(DecodingError::Kind::dataCorrupted, "The text is not valid JSON.", {});
    }
    requireObject(top, {});
    std::optional<std::string> name;
    for (const char* key : {kPaused, kRunning, kFinished}) {
        if (!top.contains(key)) {
            continue;
        }
        if (name) {
            name.reset();
            break;
        }
        name = key;
    }
    if (!name) {
        throw DecodingError(DecodingError::Kind::typeMismatch,
                            "Invalid number of keys found, expected one.", {});
    }
    const Json& fields = top[*name];
    requireObject(fields, {*name});
    if (*name == kRunning) {
        return decodeRunning(fields);
    }
    return *name == kPaused ? IntervalState::paused() : IntervalState::finished();
}

}  // namespace hearthmark::store

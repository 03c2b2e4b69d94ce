// SPDX-License-Identifier: MIT
//
// Runs the benchmarks and then prints how each figure grows with the number of intervals. Figures
// only: nothing here passes or fails.
#include "benchmarks/sample_store.h"

#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <iomanip>
#include <iostream>
#include <limits>
#include <map>
#include <string>
#include <utility>
#include <vector>

namespace hearthmark::benchmarks {

namespace {

class GrowthTable final : public benchmark::ConsoleReporter {
 public:
    GrowthTable() : ConsoleReporter(OO_None) {}

    void ReportRuns(const std::vector<Run>& runs) override {
        ConsoleReporter::ReportRuns(runs);
        for (const Run& run : runs) {
            if (run.run_type == Run::RT_Aggregate && run.aggregate_name != "median") {
                continue;
            }
            enter(run, "", run.GetAdjustedRealTime());
            enter(run, ", on the processor", run.GetAdjustedCPUTime());
        }
    }

    void print() const {
        std::cout << "\nMicroseconds by number of intervals, and growth from each to the next\n"
                  << std::fixed << std::setprecision(1) << std::setw(kNameWidth) << "";
        forEachSize([](auto intervals) { std::cout << std::setw(kWidth) << intervals; });
        std::cout << '\n';
        for (const std::string& name : names_) {
            beginRow(name);
            forEachSize([&](auto intervals) { printCell(time(name, intervals)); });
            forEachSize([&](auto intervals) {
                if (intervals < kMost) {
                    printCell(time(name, intervals * kStep) / time(name, intervals));
                }
            });
            std::cout << '\n';
        }
    }

    // How many times as long the one takes as the other.
    void printComparison(const std::string& name, const std::string& base) const {
        beginRow(name + " / " + base);
        std::cout << std::setprecision(2);
        forEachSize(
            [&](auto intervals) { printCell(time(name, intervals) / time(base, intervals)); });
        std::cout << '\n';
    }

 private:
    static constexpr int kNameWidth = 58;
    static constexpr int kWidth = 10;

    void enter(const Run& run, const std::string& suffix, double time) {
        const std::string name = run.run_name.function_name + suffix;
        if (std::ranges::find(names_, name) == names_.end()) {
            names_.push_back(name);
        }
        times_[{name, std::stoll(run.run_name.args)}] = time;
    }

    // Not a number where a filter has left it out.
    double time(const std::string& name, std::int64_t intervals) const {
        const auto found = times_.find({name, intervals});
        return found != times_.end() ? found->second : std::numeric_limits<double>::quiet_NaN();
    }

    template <class Work>
    static void forEachSize(const Work& work) {
        for (std::int64_t intervals = kFewest; intervals <= kMost; intervals *= kStep) {
            work(intervals);
        }
    }

    static void beginRow(const std::string& name) {
        std::cout << std::left << std::setw(kNameWidth) << name << std::right;
    }
    static void printCell(double figure) { std::cout << std::setw(kWidth) << figure; }

    std::vector<std::string> names_;
    std::map<std::pair<std::string, std::int64_t>, double> times_;
};

// Runs `work` in a child process, so that neither has to do with the memory of the other.
template <class Work>
void runApart(const Work& work) {
    const pid_t child = ::fork();
    if (child == 0) {
        work();
        std::cout.flush();
        // Past the destructors: the sample stores belong to the parent.
        ::_exit(EXIT_SUCCESS);
    }
    ::waitpid(child, nullptr, 0);
}

void printMemory(const std::string& occasion) {
    std::ifstream rollup("/proc/self/smaps_rollup");
    for (std::string line; std::getline(rollup, line);) {
        if (line.starts_with("Rss:")) {
            std::cout << "Memory " << occasion << ": " << line << '\n';
        }
    }
}

void printMemoryOfMost() {
    sampleStore(kFewest);  // the directory of the stores belongs to this process
    runApart([] { sampleStore(kMost); });
    runApart([] {
        printMemory("before loading");
        const OpenedStore opened(sampleStore(kMost));
        printMemory("holding " + std::to_string(kMost) + " intervals");
    });
}

}  // namespace

}  // namespace hearthmark::benchmarks

int main(int argc, char** argv) {
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv)) {
        return EXIT_FAILURE;
    }
    hearthmark::benchmarks::printMemoryOfMost();
    hearthmark::benchmarks::GrowthTable table;
    benchmark::RunSpecifiedBenchmarks(&table);
    table.print();
    table.printComparison("load", "bare SQLite read");
    table.printComparison("JSON of a task", "json.dumps");
    table.printComparison("JSON of a task", "json.dumps, indented");
    table.printComparison("everything to a file", "json.dumps of everything");
}

// The rows that grids are measured with, and how ours is measured against a plain loop.
#pragma once

#include <benchmark/benchmark.h>

#include "base/text.h"

#include <algorithm>
#include <array>
#include <ctime>
#include <memory>
#include <optional>
#include <random>
#include <unordered_map>
#include <vector>

namespace obk {

inline constexpr int32_t cols = 12;

// Every row as one text with tab characters, and its cells; the same in every run.
class Data {
public:
    explicit Data(int32_t rows) {
        std::mt19937 random(20261114);
        const auto below = [&random](uint32_t limit) { return static_cast<uint32_t>(random()) % limit; };
        const auto word = [&](size_t least, size_t most) {
            Text text;
            for (size_t left = least + below(static_cast<uint32_t>(most - least + 1)); left > 0; --left)
                text.push_back(static_cast<char16_t>(u'a' + below(26)));
            return text;
        };
        const auto date = [&] {
            static const char16_t* const days[] = {u"Mon", u"Tue", u"Wed", u"Thu", u"Fri", u"Sat", u"Sun"};
            static const char16_t* const months[] = {u"Jan", u"Apr", u"Aug", u"Nov"};
            return Text(days[below(7)]) + u" " + decimalText(1 + below(28)) + u" " + months[below(4)] + u" " +
                   decimalText(1990 + below(40));
        };
        for (int32_t row = 0; row < rows; ++row) {
            Text item = decimalText(row) + u"\t" + word(8, 20) + u"\t" + date() + u"\t";
            if (below(2)) item += u"a";
            item += u"\t" + date() + u"\t" + decimalText(below(100000)) + u".";
            const Text cents = decimalText(100 + below(100));
            item += cents.substr(1) + u"\t" + decimalText(1 + below(12)) + u":30:00 am";
            for (int count = 0; count < 5; ++count) {
                item += u"\t";
                if (below(4)) item += word(2, 8);
                if (below(4) == 0) item += u", " + word(2, 5);
            }
            items.push_back(std::move(item));
        }
        for (const Text& item : items) {
            for (size_t from = 0;;) {
                const size_t end = std::min(item.find(u'\t', from), item.size());
                cells.push_back(TextView(item).substr(from, end - from));
                units += end - from;
                if (end == item.size()) break;
                from = end + 1;
            }
        }
    }

    std::vector<Text> items;
    std::vector<TextView> cells;
    size_t units = 0;
};

inline double median(std::array<double, 5> runs) {
    std::sort(runs.begin(), runs.end());
    return runs[2];
}

// The processor's time so far, in milliseconds: others that use the machine meanwhile do not count.
inline double processorTime() {
    return static_cast<double>(std::clock()) * 1000 / CLOCKS_PER_SEC;
}

// Milliseconds of `work`, the median of five runs after a warm-up; `prepare` and what it leaves behind are
// not counted.
template <typename Prepare, typename Work>
double measure(Prepare&& prepare, Work&& work) {
    std::array<double, 5> runs{};
    for (int run = -1; run < 5; ++run) {
        auto state = prepare();
        const double start = processorTime();
        work(state);
        if (run >= 0) runs[static_cast<size_t>(run)] = processorTime() - start;
    }
    return median(runs);
}

// "wanted" is what "ratio" is to be at most.
inline void report(benchmark::State& state, double ours, double plain, std::optional<double> wanted = {}) {
    for (auto _ : state) state.SetIterationTime(ours / 1000);
    state.counters["plain_ms"] = plain;
    state.counters["ratio"] = ours / plain;
    if (wanted) state.counters["wanted"] = *wanted;
}

inline const Data& dataOf(int32_t rows) {
    static std::unordered_map<int32_t, std::unique_ptr<Data>> made;
    auto& data = made[rows];
    if (!data) data = std::make_unique<Data>(rows);
    return *data;
}

}  // namespace obk

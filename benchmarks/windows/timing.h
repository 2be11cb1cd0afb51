// Medians of repeated work, in microseconds.
#pragma once

#include <windows.h>

#include <algorithm>
#include <vector>

inline double microsecondsSince(const LARGE_INTEGER& begin) {
    LARGE_INTEGER frequency, end;
    QueryPerformanceFrequency(&frequency);
    QueryPerformanceCounter(&end);
    return static_cast<double>(end.QuadPart - begin.QuadPart) * 1e6 / static_cast<double>(frequency.QuadPart);
}

// Of so many runs after a first one that is not counted. `prepare` is not counted either.
template <typename Prepare, typename Work>
double medianMicroseconds(int runs, Prepare&& prepare, Work&& work) {
    std::vector<double> times;
    for (int run = -1; run < runs; ++run) {
        prepare();
        LARGE_INTEGER begin;
        QueryPerformanceCounter(&begin);
        work();
        if (run >= 0) times.push_back(microsecondsSince(begin));
    }
    std::nth_element(times.begin(), times.begin() + runs / 2, times.end());
    return times[static_cast<size_t>(runs / 2)];
}

template <typename Work>
double medianMicroseconds(int runs, Work&& work) {
    return medianMicroseconds(
        runs, [] {}, std::forward<Work>(work));
}

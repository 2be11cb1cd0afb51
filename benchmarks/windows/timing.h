// What is measured, in microseconds, and the table that it is printed in.
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

template <typename Work>
double microseconds(Work&& work) {
    LARGE_INTEGER begin;
    QueryPerformanceCounter(&begin);
    work();
    return microsecondsSince(begin);
}

// The median of so many measures after a first one that is not counted.
template <typename Measure>
double medianOf(int runs, Measure&& measure) {
    std::vector<double> times;
    for (int run = -1; run < runs; ++run) {
        const double took = measure();
        if (run >= 0) times.push_back(took);
    }
    std::nth_element(times.begin(), times.begin() + runs / 2, times.end());
    return times[static_cast<size_t>(runs / 2)];
}

struct SideBySide {
    double own = 0, other = 0;
};

// Medians of five, taken in turns, so that both meet the same machine.
template <typename Own, typename Other>
SideBySide sideBySide(Own&& own, Other&& other) {
    std::vector<double> owns, others;
    for (int run = -1; run < 5; ++run) {
        const double ownTook = own(), otherTook = other();
        if (run < 0) continue;
        owns.push_back(ownTook);
        others.push_back(otherTook);
    }
    std::sort(owns.begin(), owns.end());
    std::sort(others.begin(), others.end());
    return {owns[2], others[2]};
}

// One line: both measures, how many times the other the own one may be at most, and whether it is.
void printRatio(const char* work, const SideBySide& measured, const char* unit, double most);
// One line of an amount of its own; with no limit where it is 0.
void printAmount(const char* work, double amount, const char* unit, double most);
void printHeading();

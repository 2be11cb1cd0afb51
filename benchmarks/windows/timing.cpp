#include "timing.h"

#include <cstdio>

namespace {

const char* verdict(double value, double most) {
    return most == 0 || value <= most ? "" : "  ABOVE";
}

}  // namespace

void printHeading() {
    std::printf("%-44s %10s %10s %4s %8s %8s\n", "work", "own", "other", "", "times", "at most");
}

void printRatio(const char* work, const SideBySide& measured, const char* unit, double most) {
    const double times = measured.own / measured.other;
    std::printf("%-44s %10.1f %10.1f %4s %8.3f %8.3f%s\n", work, measured.own, measured.other, unit, times,
                most, verdict(times, most));
    std::fflush(stdout);
}

void printAmount(const char* work, double amount, const char* unit, double most) {
    std::printf("%-44s %10.3f %10s %4s %8s %8.3f%s\n", work, amount, "", unit, "", most,
                verdict(amount, most));
    std::fflush(stdout);
}

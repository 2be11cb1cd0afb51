// What was told, as it is compared with what should have been: "Click, Change 255".
#pragma once

#include <string>
#include <vector>

namespace obk::test {

inline std::string inOneLine(const std::vector<std::string>& told) {
    std::string line;
    for (const std::string& each : told) line += (line.empty() ? "" : ", ") + each;
    return line;
}

}  // namespace obk::test

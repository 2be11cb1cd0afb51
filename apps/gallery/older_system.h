// The classic look of the controls, on a system whose look is the flat one.
#pragma once

#include <windows.h>

namespace obk::gallery {

// The controls ask the registry how new the system is, and look as it does. Whoever asks while this lives, in
// this program alone, is answered as an older system does.
class OlderSystem {
public:
    explicit OlderSystem(bool wanted);
    OlderSystem(const OlderSystem&) = delete;
    OlderSystem& operator=(const OlderSystem&) = delete;
    ~OlderSystem();

private:
    HKEY key_ = nullptr;
};

}  // namespace obk::gallery

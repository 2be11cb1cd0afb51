#include "../port/port_conformance.h"
#include "window_driver_support.h"

namespace obk::port {
namespace {

using testing_support::WindowDriver;

INSTANTIATE_TEST_SUITE_P(Win32, PortConformance,
                         testing::Values(DriverFactory([] { return std::make_unique<WindowDriver>(); })),
                         [](const auto&) { return std::string("RealWindows"); });

}  // namespace
}  // namespace obk::port

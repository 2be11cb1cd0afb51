// Runs the tests in real windows: a single-threaded apartment, per-monitor DPI awareness, crashes reported
// with module and offset, and a watchdog, because a window that waits for a person would hang for ever.
#include "../support/from_environment.h"
#include "ended_saver.h"

#include <gtest/gtest.h>
#include <ole2.h>
#include <windows.h>

#include <atomic>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>
#include <string_view>
#include <thread>

namespace {

constexpr UINT exitCrashed = 70;
constexpr UINT exitHung = 71;
// OBK_TEST_SECONDS lets a test of many cycles run longer.
const auto longestTestMilliseconds =
    static_cast<ULONGLONG>(obk::test::fromEnvironment("OBK_TEST_SECONDS", 240)) * 1000;

std::atomic<const testing::TestInfo*> runningTest{nullptr};
std::atomic<ULONGLONG> runningSince{0};

std::string nameOfRunningTest() {
    const testing::TestInfo* test = runningTest.load();
    return test ? std::string(test->test_suite_name()) + "." + test->name() : "no test";
}

HMODULE moduleOf(const void* address, char (&name)[MAX_PATH]) {
    HMODULE module = nullptr;
    const auto flags = GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT;
    if (!GetModuleHandleExA(flags, static_cast<const char*>(address), &module) ||
        !GetModuleFileNameA(module, name, MAX_PATH))
        std::strcpy(name, "?");
    return module;
}

void printAddress(const char* label, const void* address) {
    char name[MAX_PATH];
    const HMODULE module = moduleOf(address, name);
    const auto offset = reinterpret_cast<ULONG_PTR>(address) - reinterpret_cast<ULONG_PTR>(module);
    std::fprintf(stderr, "    %s %s+0x%llx\n", label, name, static_cast<unsigned long long>(offset));
}

[[noreturn]] void endProcess(UINT code) {
    std::fflush(nullptr);
    TerminateProcess(GetCurrentProcess(), code);
    std::abort();
}

LONG CALLBACK reportCrash(EXCEPTION_POINTERS* info) {
    const EXCEPTION_RECORD& record = *info->ExceptionRecord;
    std::fprintf(stderr, "CRASHED: exception 0x%08lx in %s\n", record.ExceptionCode,
                 nameOfRunningTest().c_str());
    printAddress("at", record.ExceptionAddress);
    void* frames[24];
    const USHORT count = CaptureStackBackTrace(0, 24, frames, nullptr);
    for (USHORT i = 0; i < count; ++i) printAddress("from", frames[i]);
    endProcess(exitCrashed);
}

// Sees every exception before anybody handles it.
LONG CALLBACK reportFault(EXCEPTION_POINTERS* info) {
    const EXCEPTION_RECORD& record = *info->ExceptionRecord;
    switch (record.ExceptionCode) {
        case EXCEPTION_ACCESS_VIOLATION:
        case EXCEPTION_ILLEGAL_INSTRUCTION:
        case EXCEPTION_PRIV_INSTRUCTION:
        case EXCEPTION_INT_DIVIDE_BY_ZERO:
        case EXCEPTION_STACK_OVERFLOW:
        case EXCEPTION_DATATYPE_MISALIGNMENT:
            break;
        default:
            return EXCEPTION_CONTINUE_SEARCH;
    }
    // The system's own libraries probe memory behind handlers of their own; a fault in them is theirs to
    // answer, and ends the process only if nobody does.
    char system[MAX_PATH] = "?", module[MAX_PATH];
    GetWindowsDirectoryA(system, MAX_PATH);
    moduleOf(record.ExceptionAddress, module);
    if (std::string_view(module).starts_with(system)) return EXCEPTION_CONTINUE_SEARCH;
    return reportCrash(info);
}

class Watchdog : public testing::EmptyTestEventListener {
    void OnTestStart(const testing::TestInfo& test) override {
        runningSince = GetTickCount64();
        runningTest = &test;
        std::fflush(stdout);
    }
    void OnTestEnd(const testing::TestInfo&) override { runningTest = nullptr; }
};

void watch() {
    for (;;) {
        Sleep(500);
        if (IsDebuggerPresent()) continue;
        if (runningTest.load() && GetTickCount64() - runningSince.load() > longestTestMilliseconds) {
            std::fprintf(stderr, "HUNG: %s ran longer than %llu s\n", nameOfRunningTest().c_str(),
                         longestTestMilliseconds / 1000);
            endProcess(exitHung);
        }
    }
}

void declareDpiAwareness() {
    using SetContext = BOOL(WINAPI*)(HANDLE);
    const HMODULE user32 = GetModuleHandleW(L"user32.dll");
    const auto setContext =
        reinterpret_cast<SetContext>(GetProcAddress(user32, "SetProcessDpiAwarenessContext"));
    const auto perMonitorV2 = reinterpret_cast<HANDLE>(static_cast<INT_PTR>(-4));
    if (!setContext || !setContext(perMonitorV2)) SetProcessDPIAware();
}

}  // namespace

int main(int argc, char** argv) {
    std::setvbuf(stdout, nullptr, _IOFBF, 1 << 16);
    SetErrorMode(SEM_FAILCRITICALERRORS | SEM_NOGPFAULTERRORBOX | SEM_NOOPENFILEERRORBOX);
    AddVectoredExceptionHandler(1, reportFault);
    SetUnhandledExceptionFilter(reportCrash);
    declareDpiAwareness();
    if (obk::testing_support::isSaver(argc, argv)) return obk::testing_support::saveUntilEnded(argv);

    testing::InitGoogleTest(&argc, argv);
    if (FAILED(OleInitialize(nullptr))) {
        std::fprintf(stderr, "OleInitialize failed\n");
        return 1;
    }
    testing::UnitTest::GetInstance()->listeners().Append(new Watchdog);
    std::thread(watch).detach();

    const int result = RUN_ALL_TESTS();
    OleUninitialize();
    endProcess(static_cast<UINT>(result));
}

// A process of its own that saves a file and is ended meanwhile: the test program, started once more.
#pragma once

#include <windows.h>

#include <string>

namespace obk::testing_support {

// The file of a grid with one cell: more than is written at once, and of a length of its own.
std::string contentOf(char letter);

// Saves contentOf('n') to a file, once, and ends itself at one call of the system's, counted from 0; or again
// and again, in turns with contentOf('o'), until somebody else ends it.
class Saver {
public:
    // The port's files by themselves, or the member of a control that the server has made.
    enum class By { files, gridSave };
    static constexpr int forEver = -1;
    Saver(By by, const std::wstring& path, int lastCall);
    Saver(const Saver&) = delete;
    Saver& operator=(const Saver&) = delete;
    ~Saver();
    // Ends it if it has not ended by itself.
    void end();
    // What it has ended with.
    DWORD result();

private:
    PROCESS_INFORMATION process_{};
};

// For main(): whether the program was started as a saver, and what it does then.
bool isSaver(int count, char** arguments);
int saveUntilEnded(char** arguments);

}  // namespace obk::testing_support

#include <windows.h>

#include "platform/ConsoleMain.h"
#include "platform/win32/WideText.h"

namespace {

/// The console shows UTF-8 as long as this object lives, and what it showed before afterwards.
class Utf8Console {
 public:
    Utf8Console() : before_(GetConsoleOutputCP()) { SetConsoleOutputCP(CP_UTF8); }
    ~Utf8Console() {
        if (before_ != 0) SetConsoleOutputCP(before_);
    }
    Utf8Console(const Utf8Console&) = delete;
    Utf8Console& operator=(const Utf8Console&) = delete;

 private:
    UINT before_;
};

}  // namespace

int wmain(int argc, wchar_t** argv) {
    const Utf8Console console;
    std::vector<std::string> arguments;
    for (int i = 1; i < argc; ++i) arguments.push_back(ventlock::FromWideText(argv[i]));
    return ventlock::ConsoleMain(arguments);
}

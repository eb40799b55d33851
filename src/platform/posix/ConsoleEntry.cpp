#include "platform/ConsoleMain.h"

int main(int argc, char** argv) {
    return ventlock::ConsoleMain({argv + (argc > 0 ? 1 : 0), argv + argc});
}

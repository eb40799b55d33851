#pragma once

#include <fcntl.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <cstring>

/// Whether the change `number` of a mutation run is the one that this process is to have. VENTLOCK_MUTANT names the
/// change; "all" switches every one on at once, and without it the program is the unchanged one. The first question for
/// each number is noted in the file that VENTLOCK_MUTANTS_SEEN names.
inline bool VentlockMutant(int number) {
    static const char* const wanted = std::getenv("VENTLOCK_MUTANT");
    static const char* const seen = std::getenv("VENTLOCK_MUTANTS_SEEN");
    static const int one = wanted == nullptr ? 0 : std::atoi(wanted);
    static const bool all = wanted != nullptr && std::strcmp(wanted, "all") == 0;
    if (seen != nullptr) {
        constexpr int kMost = 10000;
        static bool noted[kMost];
        if (!noted[number % kMost]) {
            noted[number % kMost] = true;
            char line[16];
            const int length = std::snprintf(line, sizeof line, "%d\n", number);
            const int file = open(seen, O_WRONLY | O_APPEND | O_CLOEXEC);
            if (write(file, line, static_cast<size_t>(length)) != length) std::abort();
            close(file);
        }
    }
    return all || one == number;
}

#include "platform/QuitRequest.h"

#include <csignal>
#include <initializer_list>

namespace ventlock {
namespace {

volatile std::sig_atomic_t quitRequested = 0;

extern "C" void RememberQuitRequest(int /*signal*/) {
    quitRequested = 1;
}

}  // namespace

void WatchQuitRequests() {
    struct sigaction action {};
    action.sa_handler = RememberQuitRequest;
    action.sa_flags = SA_RESTART;
    for (const int signal : {SIGTERM, SIGHUP, SIGINT}) {
        struct sigaction before {};
        sigaction(signal, nullptr, &before);
        if (before.sa_handler != SIG_IGN) sigaction(signal, &action, nullptr);  // as nohup wants it
    }
}

bool QuitRequested() {
    return quitRequested != 0;
}

}  // namespace ventlock

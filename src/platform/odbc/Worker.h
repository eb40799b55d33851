#pragma once

#include <chrono>
#include <exception>
#include <functional>
#include <memory>
#include <thread>

#include "platform/IEvents.h"

namespace ventlock::odbc {

/// A thread that runs one job after another for a caller who waits no longer than a limit and lets events run
/// meanwhile. A job that never ends is left alone together with its thread: both keep what they use alive, so
/// a job must own all that it touches. The worker may be destroyed while Run waits (an event may do so).
class Worker {
 public:
    enum class Outcome {
        InTime,
        Late,   ///< ended behind the limit, within the grace
        Never,  ///< given up: the worker is of no use from now on
    };
    struct Result {
        Outcome outcome = Outcome::InTime;
        std::exception_ptr error;  ///< what the job threw
    };

    /// @param grace  how long a job may go on behind its limit, and how long the destructor waits for the
    /// thread
    /// @throws RunTimeError 7 when the thread cannot be had.
    Worker(IEvents& events, std::chrono::milliseconds grace);
    ~Worker();
    Worker(const Worker&) = delete;
    Worker& operator=(const Worker&) = delete;

    /// Runs `job` behind those that wait already. At the limit `cancel` is called, on a thread of its own
    /// because a driver may hang in it as well; it must own what it touches, too.
    Result Run(std::function<void()> job, std::chrono::milliseconds limit, std::function<void()> cancel);

    /// Has `job` run behind those that wait already, by a thread that nobody waits for.
    void Post(std::function<void()> job);

 private:
    struct Task;
    struct State;

    static std::shared_ptr<Task> Enqueue(State& state, std::function<void()> job);
    static void Loop(const std::shared_ptr<State>& state);
    static bool Wait(State& state, const Task& task, std::chrono::milliseconds time, IEvents& events);

    IEvents& events_;
    std::chrono::milliseconds grace_;
    std::shared_ptr<State> state_;
    std::thread thread_;
};

}  // namespace ventlock::odbc

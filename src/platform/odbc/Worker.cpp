#include "platform/odbc/Worker.h"

#include <algorithm>
#include <atomic>
#include <condition_variable>
#include <deque>
#include <mutex>
#include <system_error>
#include <utility>

#include "base/RunTimeError.h"

namespace ventlock::odbc {
namespace {

using Clock = std::chrono::steady_clock;

constexpr std::chrono::milliseconds kBetweenYields{10};

// Most statements take less time than to wake a processor that has gone to sleep: a thread looks out for the
// other that long before it sleeps.
constexpr std::chrono::microseconds kBeforeSleep{50};

void LookOutFor(const std::atomic<bool>& flag, std::chrono::microseconds atMost) {
    const auto end = Clock::now() + atMost;
    while (!flag.load(std::memory_order_acquire) && Clock::now() < end) std::this_thread::yield();
}

std::thread StartThread(std::function<void()> body) {
    try {
        return std::thread(std::move(body));
    } catch (const std::system_error&) {
        throw RunTimeError(ErrorNumber::OutOfMemory);
    }
}

}  // namespace

struct Worker::Task {
    std::function<void()> job;
    std::exception_ptr error;
    std::atomic<bool> finished = false;  // set under the state's mutex
};

struct Worker::State {
    std::mutex mutex;
    std::condition_variable wake;  // for the thread
    std::condition_variable done;  // for those who wait
    std::deque<std::shared_ptr<Task>> queue;
    std::atomic<bool> isCalled = false;  // the thread: the queue is not empty, or it is to stop
    bool stop = false;
    bool ended = false;
    bool givenUp = false;
};

Worker::Worker(IEvents& events, std::chrono::milliseconds grace)
    : events_(events), grace_(grace), state_(std::make_shared<State>()) {
    thread_ = StartThread([state = state_] { Loop(state); });
}

Worker::~Worker() {
    std::unique_lock lock(state_->mutex);
    state_->stop = true;
    state_->isCalled = true;
    state_->wake.notify_all();
    const auto grace = state_->givenUp ? std::chrono::milliseconds::zero() : grace_;
    const bool ended = state_->done.wait_for(lock, grace, [this] { return state_->ended; });
    lock.unlock();
    if (ended) {
        thread_.join();
    } else {
        thread_.detach();
    }
}

void Worker::Loop(const std::shared_ptr<State>& state) {
    std::unique_lock lock(state->mutex);
    for (;;) {
        state->wake.wait(lock, [&state] { return state->stop || !state->queue.empty(); });
        if (state->queue.empty()) break;
        const std::shared_ptr<Task> task = state->queue.front();
        state->queue.pop_front();
        state->isCalled = state->stop || !state->queue.empty();
        lock.unlock();
        std::exception_ptr error;
        try {
            task->job();
        } catch (...) {
            error = std::current_exception();
        }
        task->job = nullptr;  // what the job owns goes while nobody waits for the lock
        lock.lock();
        task->error = std::move(error);
        task->finished = true;
        // Whoever is woken finds the lock free.
        lock.unlock();
        state->done.notify_all();
        LookOutFor(state->isCalled, kBeforeSleep);
        lock.lock();
    }
    state->ended = true;
    state->done.notify_all();
}

bool Worker::Wait(State& state, const Task& task, std::chrono::milliseconds time, IEvents& events) {
    const auto deadline = Clock::now() + time;
    LookOutFor(task.finished, std::min<std::chrono::microseconds>(kBeforeSleep, time));
    std::unique_lock lock(state.mutex);
    for (;;) {
        const auto next = std::min(Clock::now() + kBetweenYields, deadline);
        if (state.done.wait_until(lock, next, [&task] { return task.finished.load(); })) return true;
        if (Clock::now() >= deadline) return false;
        lock.unlock();
        events.Yield();
        lock.lock();
    }
}

std::shared_ptr<Worker::Task> Worker::Enqueue(State& state, std::function<void()> job) {
    auto task = std::make_shared<Task>();
    task->job = std::move(job);
    {
        const std::lock_guard lock(state.mutex);
        state.queue.push_back(task);
        state.isCalled = true;
    }
    state.wake.notify_one();
    return task;
}

void Worker::Post(std::function<void()> job) {
    Enqueue(*state_, std::move(job));
}

Worker::Result Worker::Run(std::function<void()> job, std::chrono::milliseconds limit,
                           std::function<void()> cancel) {
    // The worker itself may be gone when an event handler returns: nothing of it is used below this line.
    const std::shared_ptr<State> state = state_;
    IEvents& events = events_;
    const std::chrono::milliseconds grace = grace_;

    const std::shared_ptr<Task> task = Enqueue(*state, std::move(job));
    if (Wait(*state, *task, limit, events)) return {Outcome::InTime, task->error};
    StartThread(std::move(cancel)).detach();
    if (Wait(*state, *task, grace, events)) return {Outcome::Late, task->error};
    const std::lock_guard lock(state->mutex);
    if (task->finished) return {Outcome::Late, task->error};
    state->stop = true;
    state->givenUp = true;
    return {Outcome::Never, nullptr};
}

}  // namespace ventlock::odbc

#pragma once

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace ventlock::test {

/// What becomes of a host's file calls, which are written down one after the other.
class CallScript {
 public:
    CallScript() = default;
    virtual ~CallScript() = default;
    CallScript(const CallScript&) = delete;
    CallScript& operator=(const CallScript&) = delete;

    /// The call at `index` (0: the first one) fails with `error` and does nothing, but a close does close.
    /// @param stays  whether every later call of the same name for the same file fails likewise
    void FailAt(std::size_t index, int error, bool stays = false);

    /// The first call of `name` fails with `error`.
    void FailFirst(const std::string& name, int error);

    /// From now on as little as possible is done at once.
    void Stutter() { stutters_ = true; }

    /// The disk takes `bytes` more bytes; after those a write fails with `error`.
    void LimitRoom(std::size_t bytes, int error);

    /// From now on nothing is brought to the disk, which is slow and shows only when the power is cut.
    void SkipFlushes() { flushes_ = false; }

    /// Runs before a call of `name` that succeeds is passed on, once.
    void BeforeFirst(const std::string& name, std::function<void()> action);

    /// Names of the calls made so far, and the files that they were made for, "" where that is not told.
    [[nodiscard]] const std::vector<std::string>& Made() const { return made_; }
    [[nodiscard]] const std::vector<std::string>& Subjects() const { return subjects_; }

    /// The index of the first call that failed by the script.
    [[nodiscard]] std::optional<std::size_t> FirstFailed() const { return firstFailed_; }

    /// How many files are open that were opened since the script began.
    [[nodiscard]] virtual int OpenFiles() const = 0;

    /// For the calls themselves: writes one down; the error with which it is to fail.
    std::optional<int> Failure(const std::string& name, const std::string& subject = {});
    [[nodiscard]] bool Stutters() const { return stutters_; }
    [[nodiscard]] bool Flushes() const { return flushes_; }

    /// For a write: how many of `size` bytes the disk takes, and that so many were taken.
    [[nodiscard]] std::size_t Room(std::size_t size) const;
    void Take(std::size_t bytes);

 private:
    [[nodiscard]] std::optional<int> FailureOfLast();

    std::vector<std::string> made_;
    std::vector<std::string> subjects_;
    std::size_t failIndex_ = static_cast<std::size_t>(-1);
    std::string failName_;
    int error_ = 0;
    bool stays_ = false;
    bool stutters_ = false;
    bool flushes_ = true;
    std::optional<std::size_t> firstFailed_;
    std::optional<std::size_t> room_;
    int fullError_ = 0;
    std::string actionName_;
    std::function<void()> action_;
};

}  // namespace ventlock::test

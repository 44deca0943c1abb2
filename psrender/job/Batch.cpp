#include "psrender/job/Batch.h"

#include "Core/Exception.h"
#include "psrender/job/Message.h"

#include <sys/mman.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <atomic>
#include <cerrno>
#include <cstdint>
#include <cstdio>
#include <exception>
#include <filesystem>
#include <map>
#include <new>
#include <stdexcept>
#include <thread>
#include <vector>

namespace psrender {

namespace {

namespace fs = std::filesystem;

constexpr std::size_t kMostNamed = 10;

std::vector<std::string> outputsOf(const JobRequest& request, const Batch& batch) {
    std::vector<std::string> outputs;
    std::map<std::string, std::string> makers;
    for (const std::string& input : request.inputs) {
        outputs.push_back((fs::path(batch.folder) / fs::path(input).stem()).string() + "." +
                          batch.suffix);
        const auto [maker, isNew] = makers.emplace(outputs.back(), input);
        if (!isNew)
            throw std::runtime_error(input + ": would have the same output as " + maker->second +
                                     "; rename one or convert them apart");
    }
    return outputs;
}

/// What the processes tell each other: which drawing is next, and how each ended. It lies in
/// memory that forked processes share.
class Board {
public:
    static constexpr std::uint8_t kUnfinished = 255;

    explicit Board(std::size_t count)
        : size_(sizeof(Next) + count),
          memory_(
              ::mmap(nullptr, size_, PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0)) {
        if (memory_ == MAP_FAILED)
            throw std::bad_alloc();
        next_ = new (memory_) Next(0);
        results_ = static_cast<std::uint8_t*>(memory_) + sizeof(Next);
        std::fill_n(results_, count, kUnfinished);
    }
    Board(const Board&) = delete;
    Board& operator=(const Board&) = delete;
    ~Board() { ::munmap(memory_, size_); }

    std::size_t takeNext() { return next_->fetch_add(1); }
    std::uint8_t& result(std::size_t index) { return results_[index]; }

private:
    using Next = std::atomic<std::size_t>;
    static_assert(Next::is_always_lock_free);

    std::size_t size_;
    void* memory_;
    Next* next_ = nullptr;
    std::uint8_t* results_ = nullptr;
};

class BatchRun {
public:
    BatchRun(const JobRequest& request, const Batch& batch)
        : request_(request),
          batch_(batch),
          outputs_(outputsOf(request, batch)),
          board_(outputs_.size()) {}

    ExitCode run() {
        fs::create_directories(batch_.folder);
        const unsigned processors = std::max(1U, std::thread::hardware_concurrency());
        const std::size_t wanted = batch_.jobs == 0 ? processors : batch_.jobs;
        for (std::size_t i = 0; i < std::min(wanted, outputs_.size()); ++i)
            start();
        while (running_ > 0)
            awaitOne();
        return sumUp();
    }

private:
    /// All that the child does, it does without leaving this call.
    void start() {
        std::fflush(nullptr);
        const pid_t child = ::fork();
        if (child < 0)
            throw std::runtime_error("cannot start a process; choose fewer --jobs");
        if (child == 0) {
            work();
            std::fflush(nullptr);
            ::_exit(0);
        }
        ++running_;
    }

    /// A process that crashed is replaced, so that the rest is done all the same.
    void awaitOne() {
        int status = 0;
        if (::wait(&status) < 0) {
            if (errno == EINTR)
                return;
            running_ = 0;
            return;
        }
        --running_;
        if (!WIFEXITED(status) || WEXITSTATUS(status) != 0)
            start();
    }

    void work() {
        for (std::size_t i = board_.takeNext(); i < outputs_.size(); i = board_.takeNext())
            board_.result(i) = static_cast<std::uint8_t>(convert(i));
    }

    ExitCode convert(std::size_t index) {
        if (batch_.skipExisting && fs::exists(outputs_[index]))
            return success;
        JobRequest one = request_;
        one.inputs = {request_.inputs[index]};
        one.output = outputs_[index];
        try {
            return runJob(one);
        } catch (const Core::Exception& error) {
            tell(error.getMessage());
        } catch (const std::bad_alloc&) {
            tell(request_.inputs[index] + ": out of memory; choose fewer --jobs");
        } catch (const std::exception& error) {
            tell(error.what());
        }
        return failure;
    }

    ExitCode sumUp() {
        ExitCode worst = success;
        std::vector<std::string> failed;
        for (std::size_t i = 0; i < outputs_.size(); ++i) {
            const std::uint8_t result = board_.result(i);
            if (result == failure || result == Board::kUnfinished)
                failed.push_back(request_.inputs[i]);
            else
                worst = std::max(worst, static_cast<ExitCode>(result));
        }
        if (failed.empty())
            return worst;
        std::string sentence = std::to_string(failed.size()) + " of " +
                               std::to_string(outputs_.size()) + " drawings failed: " + failed[0];
        for (std::size_t i = 1; i < std::min(failed.size(), kMostNamed); ++i)
            sentence += ", " + failed[i];
        tell(failed.size() > kMostNamed ? sentence + " ..." : sentence);
        return failed.size() == outputs_.size() ? failure : pagesSkipped;
    }

    const JobRequest& request_;
    const Batch& batch_;
    std::vector<std::string> outputs_;
    Board board_;
    std::size_t running_ = 0;
};

}  // namespace

ExitCode runBatch(const JobRequest& request, const Batch& batch) {
    return BatchRun(request, batch).run();
}

}  // namespace psrender

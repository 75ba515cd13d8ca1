// SPDX-FileCopyrightText: 2026 KELGdiControl contributors
// SPDX-License-Identifier: MIT

#include "childprocess.h"

#include "player.h"

#include <algorithm>
#include <array>
#include <csignal>
#include <cstdio>
#include <cstring>
#include <new>
#include <sys/mman.h>
#include <sys/wait.h>
#include <unistd.h>

extern "C" __attribute__((weak)) int __lsan_do_recoverable_leak_check();

namespace {

using namespace Monkey;

struct Shared
{
    Progress progress = {};
    std::array<char, 2000> failure = {};
    std::atomic<bool> isDone = {false};
};

// Shared with the children.
class SharedMemory
{
public:
    SharedMemory() :
        m_address(mmap(nullptr, sizeof(Shared), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS,
                       -1, 0))
    {
        if (m_address != MAP_FAILED)
            m_shared = new (m_address) Shared;
    }
    ~SharedMemory()
    {
        if (m_shared)
            munmap(m_address, sizeof(Shared));
    }
    SharedMemory(const SharedMemory &) = delete;
    SharedMemory &operator=(const SharedMemory &) = delete;

    Shared *get() const { return m_shared; }

private:
    void *const m_address;
    Shared *m_shared = nullptr;
};

// What a child prints, kept in memory.
class Messages
{
public:
    Messages() : m_file(memfd_create("messages", MFD_CLOEXEC)) { }
    ~Messages() { close(m_file); }
    Messages(const Messages &) = delete;
    Messages &operator=(const Messages &) = delete;

    void takeOutput() const
    {
        dup2(m_file, STDOUT_FILENO);
        dup2(m_file, STDERR_FILENO);
    }

    std::string text() const
    {
        std::string all;
        std::array<char, 4096> part = {};
        lseek(m_file, 0, SEEK_SET);
        for (ssize_t size = 1; size > 0; all.append(part.data(), std::size_t(size)))
            size = std::max<ssize_t>(read(m_file, part.data(), part.size()), 0);
        return all;
    }

private:
    const int m_file;
};

[[noreturn]] void runChild(const std::function<std::string(Progress *)> &work, Shared *shared)
{
    std::string failure = work(&shared->progress);
    if (failure.empty()) {
        quit();
        if (__lsan_do_recoverable_leak_check && __lsan_do_recoverable_leak_check() != 0)
            failure = memoryLeaks;
    }
    std::strncpy(shared->failure.data(), failure.c_str(), shared->failure.size() - 1);
    shared->isDone = true;
    std::fflush(nullptr);
    _exit(failure.empty() ? 0 : 1);
}

// The exit status, or -1 when it hung.
int waitFor(pid_t child, const Progress &progress)
{
    constexpr useconds_t pollUs = 2000;
    constexpr int patience = 60 * 1000 * 1000 / int(pollUs);
    std::uint64_t lastSteps = 0;
    for (int quietPolls = 0; quietPolls < patience; ++quietPolls) {
        int status = 0;
        if (waitpid(child, &status, WNOHANG) == child)
            return status;
        if (progress.steps != lastSteps) {
            lastSteps = progress.steps;
            quietPolls = 0;
        }
        usleep(pollUs);
    }
    kill(child, SIGKILL);
    waitpid(child, nullptr, 0);
    return -1;
}

// What a sanitizer calls it: a crash of another kind is another failure.
std::string summaryIn(const std::string &messages)
{
    for (const std::string start : {"SUMMARY: ", "runtime error: "}) {
        const std::size_t begin = messages.find(start);
        if (begin != std::string::npos)
            return messages.substr(begin, messages.find('\n', begin) - begin);
    }
    return {};
}

std::string crash(int status, const std::string &messages)
{
    if (status == -1)
        return "a step does not end";
    const std::string summary = summaryIn(messages);
    if (!summary.empty())
        return "a crash: " + summary;
    if (WIFSIGNALED(status))
        return "a crash: " + std::string(strsignal(WTERMSIG(status)));
    return "a crash: exit code " + std::to_string(WEXITSTATUS(status));
}

} // namespace

Outcome Monkey::inChildProcess(const std::function<std::string(Progress *)> &work, bool isQuiet)
{
    const SharedMemory memory;
    const Messages messages;
    Shared *const shared = memory.get();
    if (!shared)
        return {"no shared memory"};
    std::fflush(nullptr);
    const pid_t child = fork();
    if (child < 0)
        return {"no child process"};
    if (child == 0) {
        messages.takeOutput();
        runChild(work, shared);
    }
    const int status = waitFor(child, shared->progress);
    const std::string text = messages.text();
    Outcome outcome = {shared->failure.data(), shared->progress.steps, shared->progress.chunk};
    if (status != 0 && outcome.failure.empty())
        outcome.failure = crash(status, text);
    else if (!shared->isDone && outcome.failure.empty())
        outcome.failure = "the program ends early";
    if (!isQuiet && !outcome.failure.empty())
        std::fprintf(stderr, "%s", text.c_str());
    return outcome;
}

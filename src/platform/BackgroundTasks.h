#pragma once

#include <atomic>
#include <functional>
#include <list>
#include <memory>
#include <stop_token>
#include <system_error>
#include <thread>
#include <utility>

namespace hmatnik::platform {

/// Runs tasks aside, each in a thread of its own, and does not outlive them: whoever lets go of it
/// asks those that still run to stop and waits until they have. Belongs to one thread.
class BackgroundTasks
{
public:
    /// Shall end soon when the token asks it to.
    using Task = std::function<void(const std::stop_token &)>;

    BackgroundTasks() = default;
    BackgroundTasks(const BackgroundTasks &) = delete;
    BackgroundTasks &operator=(const BackgroundTasks &) = delete;
    ~BackgroundTasks()
    {
        // All at once, so that none waits for another.
        for (Running &running : m_running)
            running.thread.request_stop();
    }

    /// Starts a task; false if the system has no thread for it.
    [[nodiscard]] bool start(Task task)
    {
        m_running.remove_if([](const Running &running) { return running.isDone->load(); });
        const auto isDone = std::make_shared<std::atomic<bool>>(false);
        try {
            m_running.push_back(
                {isDone,
                 std::jthread([task = std::move(task), isDone](const std::stop_token &stop) {
                     task(stop);
                     isDone->store(true);
                 })});
        } catch (const std::system_error &) {
            return false;
        }
        return true;
    }

private:
    struct Running
    {
        std::shared_ptr<std::atomic<bool>> isDone;
        std::jthread thread;
    };
    std::list<Running> m_running;
};

} // namespace hmatnik::platform

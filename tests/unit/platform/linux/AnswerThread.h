#pragma once

#include <QMetaObject>
#include <QObject>
#include <QThread>

#include <atomic>
#include <functional>
#include <latch>
#include <utility>

namespace hmatnik::test {

/// A thread from which an object answers, as another process would.
class AnswerThread
{
public:
    explicit AnswerThread(QObject &object)
        : m_object(object)
    {
        object.moveToThread(&m_thread);
        m_thread.start();
    }
    /// What the object answers to has to be taken back before, in run().
    ~AnswerThread()
    {
        m_thread.quit();
        m_thread.wait();
    }
    AnswerThread(const AnswerThread &) = delete;
    AnswerThread &operator=(const AnswerThread &) = delete;

    /// Runs a function in the thread and returns when it has ended. Goes there and back by an
    /// atomic pointer and a latch: the thread sanitizer can follow them, but not what Qt's library
    /// does.
    void run(std::function<void()> function)
    {
        Task task{std::move(function)};
        m_task.store(&task, std::memory_order_release);
        QMetaObject::invokeMethod(
            &m_object,
            [this] {
                Task &taken = *m_task.load(std::memory_order_acquire);
                taken.function();
                taken.done.count_down();
            },
            Qt::QueuedConnection);
        task.done.wait();
    }

private:
    struct Task
    {
        std::function<void()> function;
        std::latch done{1};
    };

    std::atomic<Task *> m_task = nullptr;
    QObject &m_object;
    QThread m_thread;
};

} // namespace hmatnik::test

// SPDX-FileCopyrightText: 2026 The Zorbino team
// SPDX-License-Identifier: MIT

#pragma once

#include <QDeadlineTimer>
#include <QEventLoop>
#include <QTimer>

#include <chrono>
#include <coroutine>
#include <cstdlib>
#include <functional>
#include <utility>

/// What a user does in a test, as a coroutine: between two waits it is not on the stack. So it goes on also
/// while the program waits for the user in an event loop of its own, deep down in a run or in a message box.
class Script
{
public:
    struct promise_type {
        Script get_return_object() { return Script(Handle::from_promise(*this)); }
        std::suspend_always initial_suspend() noexcept { return {}; }
        std::suspend_always final_suspend() noexcept { return {}; }
        void return_void() {}
        void unhandled_exception() { std::abort(); }

        std::function<bool()> awaited = [] { return true; };
        QDeadlineTimer patience{0};
    };
    using Handle = std::coroutine_handle<promise_type>;

    /// co_await until(condition): goes on when it holds; false where it has not come to hold for
    /// longer than any machine takes.
    struct until {
        explicit until(std::function<bool()> condition)
            : holds(std::move(condition))
        {
        }
        bool await_ready() const { return false; }
        void await_suspend(Handle script)
        {
            script.promise().awaited = holds;
            script.promise().patience.setRemainingTime(patience);
        }
        bool await_resume() const { return holds(); }
        std::function<bool()> holds;
    };
    /// co_await turn(): lets the program handle what is waiting for it.
    static until turn()
    {
        return until([] { return true; });
    }

    Script(Script&& other) noexcept
        : m_script(std::exchange(other.m_script, nullptr))
    {
    }
    Script(const Script&) = delete;
    Script& operator=(const Script&) = delete;
    Script& operator=(Script&&) = delete;
    ~Script()
    {
        if (m_script)
            m_script.destroy();
    }

    /// Plays one script to its end, then the other. Whatever the first leaves waiting further down, the other
    /// must end.
    static void play(const Script& first, const Script& last)
    {
        QEventLoop loop;
        QTimer clock;
        const Script* now = &first;
        bool acting = false; // what the script does may let events in
        clock.callOnTimeout(&clock, [&] {
            const promise_type& promise = now->m_script.promise();
            if (acting || (!promise.awaited() && !promise.patience.hasExpired()))
                return;
            acting = true;
            now->m_script.resume();
            acting = false;
            if (!now->m_script.done())
                return;
            if (now == &last)
                return loop.quit();
            now = &last;
        });
        clock.start(2);
        loop.exec();
    }

private:
    static constexpr std::chrono::seconds patience{20};

    explicit Script(Handle script)
        : m_script(script)
    {
    }

    Handle m_script;
};

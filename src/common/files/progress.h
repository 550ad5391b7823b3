#pragma once

#include <functional>
#include <type_traits>
#include <utility>

// Told between the steps of long work, so that a screen can show how far it is: \a done of \a
// total. Nobody may be listening.
class Progress
{
public:
    Progress() = default;

    template<std::invocable<int, int> Listener>
    requires(!std::same_as<Listener, Progress>) Progress(Listener listener)
        : m_listener(std::move(listener))
    {
    }

    void operator()(int done, int total) const
    {
        if (m_listener)
            m_listener(done, total);
    }

private:
    std::function<void(int done, int total)> m_listener;
};

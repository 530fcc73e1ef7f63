#pragma once

#include <memory>
#include <utility>

namespace zv {

/// A member that lets callbacks hold their owner weakly: a callback from guard() does nothing once
/// the Lifetime is gone. Declare it last, so that it dies first. Main thread only.
class Lifetime {
public:
    Lifetime() = default;
    Lifetime(Lifetime const&) = delete;
    Lifetime& operator=(Lifetime const&) = delete;

    [[nodiscard]] std::weak_ptr<void> token() const { return m_alive; }

    template <class Function> [[nodiscard]] auto guard(Function function) const
    {
        return [weak = token(), function = std::move(function)](auto&&... arguments) mutable {
            if (auto const alive = weak.lock())
                function(std::forward<decltype(arguments)>(arguments)...);
        };
    }

private:
    std::shared_ptr<void> m_alive = std::make_shared<char>();
};

} // namespace zv

#pragma once

#include <optional>
#include <string>
#include <utility>
#include <variant>

namespace zv {

/// Wraps an error so that a Result can be made from it without ambiguity.
template <class E> struct Failure {
    E error;
};

template <class E> Failure(E) -> Failure<E>;

/// A value, or the error that explains why there is none. Nothing throws.
template <class T, class E = std::string> class [[nodiscard]] Result {
public:
    Result(T value) // NOLINT(google-explicit-constructor): `return value;` is the point
        : m_state(std::in_place_index<0>, std::move(value))
    {
    }
    template <class F>
    Result(Failure<F> failure) // NOLINT(google-explicit-constructor)
        : m_state(std::in_place_index<1>, std::move(failure.error))
    {
    }

    [[nodiscard]] bool ok() const { return m_state.index() == 0; }
    explicit operator bool() const { return ok(); }

    [[nodiscard]] T const& value() const& { return std::get<0>(m_state); }
    [[nodiscard]] T& value() & { return std::get<0>(m_state); }
    [[nodiscard]] T&& value() && { return std::get<0>(std::move(m_state)); }
    [[nodiscard]] E const& error() const { return std::get<1>(m_state); }

    T const* operator->() const { return &value(); }
    T* operator->() { return &value(); }
    T const& operator*() const& { return value(); }
    T& operator*() & { return value(); }

private:
    std::variant<T, E> m_state;
};

/// For operations that only succeed or fail: `return {};` is success.
template <class E> class [[nodiscard]] Result<void, E> {
public:
    Result() = default;
    template <class F>
    Result(Failure<F> failure) // NOLINT(google-explicit-constructor)
        : m_error(std::move(failure.error))
    {
    }

    [[nodiscard]] bool ok() const { return !m_error; }
    explicit operator bool() const { return ok(); }

    [[nodiscard]] E const& error() const { return m_error.value(); }

private:
    std::optional<E> m_error;
};

} // namespace zv

#pragma once

#include "runtime/Failure.h"

#include <optional>
#include <utility>
#include <variant>

/// A value, or why there is none:
///
///     const Result<QByteArray> bytes = readWholeFile(fileName);
///     if (!bytes) {
///         return bytes.failure();
///     }
///     use(*bytes);
template <typename T = void>
class [[nodiscard]] Result
{
public:
    Result(T value) : m_state(std::in_place_index<0>, std::move(value)) { }
    Result(Failure failure) : m_state(std::in_place_index<1>, std::move(failure)) { }
    Result(FailureCode code) : Result(Failure{code}) { }

    explicit operator bool() const { return m_state.index() == 0; }

    /// The value; only of a success.
    const T &operator*() const & { return std::get<0>(m_state); }
    T &operator*() & { return std::get<0>(m_state); }
    T &&operator*() && { return std::get<0>(std::move(m_state)); }
    const T *operator->() const { return &**this; }
    T *operator->() { return &**this; }
    T valueOr(T other) const { return *this ? **this : std::move(other); }

    /// Only of a failure.
    const Failure &failure() const { return std::get<1>(m_state); }

    bool operator==(const Result &) const = default;

private:
    std::variant<T, Failure> m_state;
};

/// Whether something was done, or why it was not.
template <>
class [[nodiscard]] Result<void>
{
public:
    Result() = default;
    Result(Failure failure) : m_failure(std::move(failure)) { }
    Result(FailureCode code) : Result(Failure{code}) { }

    explicit operator bool() const { return !m_failure.has_value(); }

    /// Only of a failure.
    const Failure &failure() const { return *m_failure; }

    bool operator==(const Result &) const = default;

private:
    std::optional<Failure> m_failure;
};

#pragma once

#include <array>
#include <cstddef>
#include <span>

#include "companions/kestrin/kernels/quiet_floor.h"

namespace mavrin2::kestrin {

// A linear recursive system with one input and one output, in the form of its state:
//   output = Direct · input + Output · state,  next state = Transition · state + Input · input.
template <std::size_t Order>
struct StateSpace {
    using Vector = std::array<double, Order>;
    std::array<Vector, Order> Transition{};  // by rows
    Vector Input{};
    Vector Output{};
    double Direct = 1;
};

// Runs such a system four samples at a time. A recursive filter computed sample by sample waits
// for its own last result; here four outputs and the state after them are sums of the same five
// … eight numbers, which the processor adds up side by side.
template <std::size_t Order>
class Recursion {
    static_assert(Order % 2 == 0);

public:
    Recursion() = default;
    explicit Recursion(const StateSpace<Order>& system) { Set(system); }

    // The state is kept.
    void Set(const StateSpace<Order>& system);
    void Process(std::span<double> block);

private:
    static constexpr std::size_t kSteps = 4;
    // Two numbers of one vector register.
    using Pair = double __attribute__((vector_size(16)));
    static Pair Both(double value) { return Pair{value, value}; }

    void Step(double& value);

    StateSpace<Order> system_;
    // What each number of the state, and each of four inputs, adds to four outputs and to the state
    // after them.
    std::array<std::array<Pair, kSteps / 2>, Order> stateToOutput_{};
    std::array<std::array<Pair, Order / 2>, Order> stateToState_{};
    std::array<std::array<Pair, kSteps / 2>, kSteps> inputToOutput_{};
    std::array<std::array<Pair, Order / 2>, kSteps> inputToState_{};
    std::array<double, Order> state_{};
};

template <std::size_t Order>
void Recursion<Order>::Set(const StateSpace<Order>& system) {
    system_ = system;
    using Vector = typename StateSpace<Order>::Vector;
    const auto advanced = [&](const Vector& state) {
        Vector next{};
        for (std::size_t row = 0; row < Order; ++row)
            for (std::size_t i = 0; i < Order; ++i)
                next[row] += system.Transition[row][i] * state[i];
        return next;
    };
    const auto output = [&](const Vector& state) {
        double sum = 0;
        for (std::size_t i = 0; i < Order; ++i)
            sum += system.Output[i] * state[i];
        return sum;
    };
    for (std::size_t s = 0; s < Order; ++s) {
        Vector state{};
        state[s] = 1;
        for (std::size_t step = 0; step < kSteps; ++step) {
            stateToOutput_[s][step / 2][step % 2] = output(state);
            state = advanced(state);
        }
        for (std::size_t i = 0; i < Order; ++i)
            stateToState_[s][i / 2][i % 2] = state[i];
    }
    for (std::size_t input = 0; input < kSteps; ++input) {
        Vector state = system.Input;
        inputToOutput_[input] = {};
        inputToOutput_[input][input / 2][input % 2] = system.Direct;
        for (std::size_t step = input + 1; step < kSteps; ++step) {
            inputToOutput_[input][step / 2][step % 2] = output(state);
            state = advanced(state);
        }
        for (std::size_t i = 0; i < Order; ++i)
            inputToState_[input][i / 2][i % 2] = state[i];
    }
}

template <std::size_t Order>
void Recursion<Order>::Process(std::span<double> block) {
    double* value = block.data();
    std::array<Pair, Order / 2> state;
    for (std::size_t i = 0; i < Order; ++i)
        state[i / 2][i % 2] = state_[i];
    for (std::size_t left = block.size() / kSteps; left > 0; --left, value += kSteps) {
        std::array<Pair, kSteps / 2> outputs{};
        std::array<Pair, Order / 2> next{};
        for (std::size_t i = 0; i < kSteps; ++i) {
            const Pair input = Both(value[i]);
            for (std::size_t k = i / 2; k < kSteps / 2; ++k)
                outputs[k] += input * inputToOutput_[i][k];
            for (std::size_t k = 0; k < Order / 2; ++k)
                next[k] += input * inputToState_[i][k];
        }
        for (std::size_t s = 0; s < Order; ++s) {
            const Pair number = Both(state[s / 2][s % 2]);
            for (std::size_t k = 0; k < kSteps / 2; ++k)
                outputs[k] += number * stateToOutput_[s][k];
            for (std::size_t k = 0; k < Order / 2; ++k)
                next[k] += number * stateToState_[s][k];
        }
        for (std::size_t i = 0; i < kSteps; ++i)
            value[i] = outputs[i / 2][i % 2];
        state = next;
    }
    for (std::size_t i = 0; i < Order; ++i)
        state_[i] = state[i / 2][i % 2];
    for (std::size_t i = 0; i < block.size() % kSteps; ++i)
        Step(value[i]);
    for (double& number : state_)
        FlushToZero(number);
}

template <std::size_t Order>
void Recursion<Order>::Step(double& value) {
    std::array<double, Order> next{};
    double output = system_.Direct * value;
    for (std::size_t row = 0; row < Order; ++row) {
        output += system_.Output[row] * state_[row];
        next[row] = system_.Input[row] * value;
        for (std::size_t i = 0; i < Order; ++i)
            next[row] += system_.Transition[row][i] * state_[i];
    }
    state_ = next;
    value = output;
}

}  // namespace mavrin2::kestrin

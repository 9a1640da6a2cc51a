#pragma once

#include <array>
#include <cstddef>
#include <cstring>
#include <span>

#include "companions/kestrin/kernels/quiet_floor.h"

namespace mavrin2::kestrin {

// A linear recursive system with one input and one output, in the form of its state:
//   output = Direct · input + Output · state,  next state = Transition · state + Input · input.
template <std::size_t Order, class Number>
struct StateSpace {
    using State = std::array<Number, Order>;
    std::array<State, Order> Transition{};  // by columns: what each number of the state becomes
    State Input{};
    State Output{};
    Number Direct = 1;
};

// As many numbers as one vector register holds on every processor.
template <class Number>
struct VectorOf;
template <>
struct VectorOf<double> {
    using Type [[gnu::vector_size(16)]] = double;
};
template <>
struct VectorOf<float> {
    using Type [[gnu::vector_size(16)]] = float;
};

// Runs such a system four samples at a time. A recursive filter that is computed sample by sample
// waits for its own last result; here four outputs and the state after them are sums of the same
// numbers, which the processor adds up side by side.
template <std::size_t Order, class Number>
class Recursion {
public:
    using System = StateSpace<Order, Number>;

    Recursion() = default;
    explicit Recursion(const System& system) { Set(system); }

    // The state is kept.
    void Set(const System& system);
    void Process(std::span<Number> block);

private:
    static constexpr std::size_t kSteps = 4;  // see Set, which squares twice
    static constexpr std::size_t kLanes = 16 / sizeof(Number);
    static_assert(Order % kLanes == 0);

    using Vector = typename VectorOf<Number>::Type;
    using State = std::array<Vector, Order / kLanes>;
    using Outputs = std::array<Vector, kSteps / kLanes>;

    static State Load(const typename System::State& state) {
        State loaded;
        std::memcpy(loaded.data(), state.data(), sizeof loaded);
        return loaded;
    }
    static void Add(State& sum, Number factor, const State& column) {
        for (std::size_t i = 0; i < sum.size(); ++i)
            sum[i] += factor * column[i];
    }
    static State AppliedTo(const State& state, const std::array<State, Order>& columns) {
        State next{};
        for (std::size_t i = 0; i < Order; ++i)
            Add(next, state[i / kLanes][i % kLanes], columns[i]);
        return next;
    }
    State Advanced(const State& state) const { return AppliedTo(state, transition_); }
    Number OutputOf(const State& state) const {
        State parts = state;
        for (std::size_t i = 0; i < parts.size(); ++i)
            parts[i] *= output_[i];
        Number sum = 0;
        for (std::size_t i = 0; i < Order; ++i)
            sum += parts[i / kLanes][i % kLanes];
        return sum;
    }

    Number direct_ = 1;
    State input_{};
    State output_{};
    std::array<State, Order> transition_{};
    // What each number of the state, and each of four inputs, adds to four outputs and to the state
    // after them.
    std::array<Outputs, Order> stateToOutput_{};
    std::array<State, Order> stateToState_{};
    std::array<Outputs, kSteps> inputToOutput_{};
    std::array<State, kSteps> inputToState_{};
    State state_{};
};

template <std::size_t Order, class Number>
void Recursion<Order, Number>::Set(const System& system) {
    direct_ = system.Direct;
    input_ = Load(system.Input);
    output_ = Load(system.Output);
    for (std::size_t i = 0; i < Order; ++i)
        transition_[i] = Load(system.Transition[i]);

    // By rows, the matrix and its output after each step.
    using Row = typename System::State;
    std::array<Row, Order> rows;
    for (std::size_t i = 0; i < Order; ++i)
        for (std::size_t j = 0; j < Order; ++j)
            rows[i][j] = system.Transition[j][i];
    std::array<Row, kSteps> outputs{system.Output};
    for (std::size_t step = 1; step < kSteps; ++step)
        for (std::size_t i = 0; i < Order; ++i)
            for (std::size_t j = 0; j < Order; ++j)
                outputs[step][j] += outputs[step - 1][i] * rows[i][j];
    for (std::size_t i = 0; i < Order; ++i)
        for (std::size_t step = 0; step < kSteps; ++step)
            stateToOutput_[i][step / kLanes][step % kLanes] = outputs[step][i];
    std::array<State, Order> twice;
    for (std::size_t i = 0; i < Order; ++i)
        twice[i] = AppliedTo(transition_[i], transition_);
    for (std::size_t i = 0; i < Order; ++i)
        stateToState_[i] = AppliedTo(twice[i], twice);

    // An input acts on the outputs after it as the first one does, later.
    std::array<Number, kSteps> answer{direct_};
    State state = input_;
    for (std::size_t step = 1; step <= kSteps; ++step) {
        inputToState_[kSteps - step] = state;
        if (step == kSteps) break;
        answer[step] = OutputOf(state);
        state = Advanced(state);
    }
    for (std::size_t input = 0; input < kSteps; ++input)
        for (std::size_t step = 0; step < kSteps; ++step)
            inputToOutput_[input][step / kLanes][step % kLanes] =
                step < input ? Number(0) : answer[step - input];
}

template <std::size_t Order, class Number>
void Recursion<Order, Number>::Process(std::span<Number> block) {
    Number* value = block.data();
    State state = state_;
    for (std::size_t left = block.size() / kSteps; left > 0; --left, value += kSteps) {
        Outputs outputs{};
        State next{};
        for (std::size_t i = 0; i < kSteps; ++i) {
            for (std::size_t k = i / kLanes; k < outputs.size(); ++k)
                outputs[k] += value[i] * inputToOutput_[i][k];
            Add(next, value[i], inputToState_[i]);
        }
        for (std::size_t i = 0; i < Order; ++i) {
            const Number number = state[i / kLanes][i % kLanes];
            for (std::size_t k = 0; k < outputs.size(); ++k)
                outputs[k] += number * stateToOutput_[i][k];
            Add(next, number, stateToState_[i]);
        }
        std::memcpy(value, outputs.data(), sizeof outputs);
        state = next;
    }
    for (std::size_t i = 0; i < block.size() % kSteps; ++i) {
        const Number input = value[i];
        value[i] = direct_ * input + OutputOf(state);
        state = Advanced(state);
        Add(state, input, input_);
    }
    for (std::size_t i = 0; i < Order; ++i) {
        Number number = state[i / kLanes][i % kLanes];
        FlushToZero(number);
        state[i / kLanes][i % kLanes] = number;
    }
    state_ = state;
}

}  // namespace mavrin2::kestrin

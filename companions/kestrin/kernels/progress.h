#pragma once

#include <cstddef>
#include <stdexcept>

namespace mavrin2::kestrin {

// Thrown out of an operation that was aborted.
class Aborted : public std::runtime_error {
public:
    Aborted() : std::runtime_error("aborted") {}
};

// What a running operation reports to, at least once in 5 milliseconds.
class Progress {
public:
    virtual ~Progress() = default;

    // `fraction` of the whole is done, 0 … 1, never less than before. Throws Aborted when the
    // operation should end.
    virtual void Report(double fraction) = 0;
    // So many samples more were beyond full scale and have been limited.
    virtual void AddLimited(std::size_t samples) = 0;
};

// A stretch of another progress: an operation in several passes gives each of them one.
class PartOfProgress final : public Progress {
public:
    PartOfProgress(Progress& whole, double from, double to) : whole_(whole), from_(from), to_(to) {}

    void Report(double fraction) override { whole_.Report(from_ + (to_ - from_) * fraction); }
    void AddLimited(std::size_t samples) override { whole_.AddLimited(samples); }

private:
    Progress& whole_;
    double from_;
    double to_;
};

inline double FractionOf(std::size_t done, std::size_t total) {
    return total == 0 ? 1.0 : static_cast<double>(done) / static_cast<double>(total);
}

}  // namespace mavrin2::kestrin

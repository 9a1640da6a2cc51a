#pragma once

#include <complex>
#include <cstddef>
#include <memory>
#include <span>
#include <stdexcept>

// What the kernels take from libraries, each of which is wrapped in a backend.
namespace mavrin2::kestrin {

// The discrete Fourier transform of real values, and back. It owns both sides.
class Fourier {
public:
    virtual ~Fourier() = default;

    std::span<float> Time() { return time_; }
    // Half of the size, and one: from 0 to half the rate.
    std::span<std::complex<float>> Spectrum() { return spectrum_; }

    // From Time to Spectrum, and from Spectrum, which is lost, to Time. Forward does not scale,
    // Inverse divides by the size.
    virtual void Forward() = 0;
    virtual void Inverse() = 0;

protected:
    std::span<float> time_;
    std::span<std::complex<float>> spectrum_;
};

// The same of complex values. Two real signals in one, as its real and its imaginary part, cost
// less than two transforms of real values where both need the same linear change.
class ComplexFourier {
public:
    virtual ~ComplexFourier() = default;

    // Until the next transform.
    std::span<std::complex<float>> Values() { return values_; }

    // Neither scales: one after the other multiplies by the size.
    virtual void Forward() = 0;
    virtual void Inverse() = 0;

protected:
    std::span<std::complex<float>> values_;
};

// Another number of samples for the same sound.
class RateConverter {
public:
    virtual ~RateConverter() = default;

    struct Moved {
        std::size_t Consumed;
        std::size_t Delivered;
    };
    // What comes out is at the same place of the sound as what went in. Without input: what is
    // left.
    virtual Moved Process(std::span<const float> in, std::span<float> out) = 0;
};

class FourierMaker {
public:
    virtual ~FourierMaker() = default;
    // `size` is a power of two from 4 on. Null when the library refuses.
    virtual std::unique_ptr<Fourier> Make(std::size_t size) const = 0;
    virtual std::unique_ptr<ComplexFourier> MakeComplex(std::size_t size) const = 0;
};

class RateConverterMaker {
public:
    virtual ~RateConverterMaker() = default;
    // `ratio` samples come out for each one that goes in. Null when the library refuses.
    virtual std::unique_ptr<RateConverter> Make(double ratio) const = 0;
};

class LibraryMissing : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

class Libraries {
public:
    virtual ~Libraries() = default;

    // All of them throw LibraryMissing.
    virtual std::unique_ptr<Fourier> MakeFourier(std::size_t size) const = 0;
    virtual std::unique_ptr<ComplexFourier> MakeComplexFourier(std::size_t size) const = 0;
    virtual std::unique_ptr<RateConverter> MakeRateConverter(double ratio) const = 0;
};

}  // namespace mavrin2::kestrin

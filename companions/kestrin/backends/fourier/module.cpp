extern "C" {
#include <libavutil/mem.h>
#include <libavutil/tx.h>
}

#include "companions/backends/backends.h"
#include "companions/kestrin/kernels/libraries.h"

namespace mavrin2::kestrin {
namespace {

struct FreeTransform {
    void operator()(AVTXContext* context) const { av_tx_uninit(&context); }
};
struct FreeMemory {
    void operator()(void* memory) const { av_free(memory); }
};

// One direction of a transform.
class Transform {
public:
    Transform(AVTXType type, std::size_t size, bool inverse, float scale) {
        AVTXContext* context = nullptr;
        const int status =
            av_tx_init(&context, &run_, type, inverse ? 1 : 0, static_cast<int>(size), &scale, 0);
        context_.reset(status < 0 ? nullptr : context);
    }
    explicit operator bool() const { return context_ != nullptr; }

    void Run(void* to, void* from, std::size_t elementOfSource) {
        run_(context_.get(), to, from, static_cast<std::ptrdiff_t>(elementOfSource));
    }

private:
    std::unique_ptr<AVTXContext, FreeTransform> context_;
    av_tx_fn run_ = nullptr;
};

template <class Number>
using Memory = std::unique_ptr<Number, FreeMemory>;

// Zeros, aligned as the library wants them; null without memory.
template <class Number>
Memory<Number> Allocate(std::size_t count) {
    return Memory<Number>(static_cast<Number*>(av_mallocz(count * sizeof(Number))));
}

class AvFourier final : public Fourier {
public:
    explicit AvFourier(std::size_t size)
        : forward_(AV_TX_FLOAT_RDFT, size, false, 1.0F),
          inverse_(AV_TX_FLOAT_RDFT, size, true, 1.0F / static_cast<float>(size)),
          values_(Allocate<float>(size + 16)),
          frequencies_(Allocate<std::complex<float>>(size / 2 + 8)) {
        time_ = {values_.get(), values_ ? size : 0};
        spectrum_ = {frequencies_.get(), frequencies_ ? size / 2 + 1 : 0};
    }
    bool IsUsable() const { return forward_ && inverse_ && values_ && frequencies_; }

    void Forward() override { forward_.Run(spectrum_.data(), time_.data(), sizeof(float)); }
    void Inverse() override {
        inverse_.Run(time_.data(), spectrum_.data(), sizeof(std::complex<float>));
    }

private:
    Transform forward_;
    Transform inverse_;
    Memory<float> values_;
    Memory<std::complex<float>> frequencies_;
};

class AvComplexFourier final : public ComplexFourier {
public:
    explicit AvComplexFourier(std::size_t size)
        : forward_(AV_TX_FLOAT_FFT, size, false, 1.0F),
          inverse_(AV_TX_FLOAT_FFT, size, true, 1.0F),
          present_(Allocate<std::complex<float>>(size)),
          other_(Allocate<std::complex<float>>(size)) {
        values_ = {present_.get(), present_ ? size : 0};
    }
    bool IsUsable() const { return forward_ && inverse_ && present_ && other_; }

    void Forward() override { Run(forward_); }
    void Inverse() override { Run(inverse_); }

private:
    void Run(Transform& transform) {
        transform.Run(other_.get(), present_.get(), sizeof(std::complex<float>));
        std::swap(present_, other_);
        values_ = {present_.get(), values_.size()};
    }

    Transform forward_;
    Transform inverse_;
    Memory<std::complex<float>> present_;
    Memory<std::complex<float>> other_;
};

template <class Made, class Interface>
std::unique_ptr<Interface> MakeUsable(std::size_t size) {
    auto made = std::make_unique<Made>(size);
    if (!made->IsUsable()) return nullptr;
    return made;
}

class AvFourierMaker final : public FourierMaker {
public:
    std::unique_ptr<Fourier> Make(std::size_t size) const override {
        return MakeUsable<AvFourier, Fourier>(size);
    }
    std::unique_ptr<ComplexFourier> MakeComplex(std::size_t size) const override {
        return MakeUsable<AvComplexFourier, ComplexFourier>(size);
    }
};

}  // namespace
}  // namespace mavrin2::kestrin

MAVRIN2_BACKEND_ENTRY(kestrin, fourier, FourierMaker) {
    static const mavrin2::kestrin::AvFourierMaker maker;
    return &maker;
}

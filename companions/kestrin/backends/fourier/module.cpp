extern "C" {
#include <libavutil/mem.h>
#include <libavutil/tx.h>
}

#include "companions/kestrin/kernels/backend.h"
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
    Transform(std::size_t size, bool inverse, float scale) {
        AVTXContext* context = nullptr;
        const int status = av_tx_init(&context, &run_, AV_TX_FLOAT_RDFT, inverse ? 1 : 0,
                                      static_cast<int>(size), &scale, 0);
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

class AvFourier final : public Fourier {
public:
    explicit AvFourier(std::size_t size)
        : forward_(size, false, 1.0F),
          inverse_(size, true, 1.0F / static_cast<float>(size)),
          values_(static_cast<float*>(av_mallocz((size + 16) * sizeof(float)))),
          frequencies_(static_cast<std::complex<float>*>(av_mallocz((size + 16) * sizeof(float)))) {
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
    std::unique_ptr<float, FreeMemory> values_;
    std::unique_ptr<std::complex<float>, FreeMemory> frequencies_;
};

class AvFourierMaker final : public FourierMaker {
public:
    std::unique_ptr<Fourier> Make(std::size_t size) const override {
        auto made = std::make_unique<AvFourier>(size);
        if (!made->IsUsable()) return nullptr;
        return made;
    }
};

}  // namespace
}  // namespace mavrin2::kestrin

MAVRIN2_KESTRIN_EXPORT const mavrin2::kestrin::FourierMaker* Mavrin2KestrinFourier() {
    static const mavrin2::kestrin::AvFourierMaker maker;
    return &maker;
}

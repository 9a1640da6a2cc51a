#include <soxr.h>

#include "companions/backends/backends.h"
#include "companions/kestrin/kernels/libraries.h"

namespace mavrin2::kestrin {
namespace {

struct DeleteSoxr {
    void operator()(soxr_t handle) const { soxr_delete(handle); }
};
using SoxrHandle = std::unique_ptr<soxr, DeleteSoxr>;

class SoxrConverter final : public RateConverter {
public:
    explicit SoxrConverter(SoxrHandle handle) : handle_(std::move(handle)) {}

    Moved Process(std::span<const float> in, std::span<float> out) override {
        Moved moved{};
        // A null input says that there is no more.
        if (soxr_process(handle_.get(), in.empty() ? nullptr : in.data(), in.size(),
                         &moved.Consumed, out.data(), out.size(), &moved.Delivered))
            return {};
        return moved;
    }

private:
    SoxrHandle handle_;
};

class SoxrConverterMaker final : public RateConverterMaker {
public:
    std::unique_ptr<RateConverter> Make(double ratio) const override {
        soxr_error_t error = nullptr;
        const soxr_io_spec_t io = soxr_io_spec(SOXR_FLOAT32_I, SOXR_FLOAT32_I);
        const soxr_quality_spec_t quality = soxr_quality_spec(SOXR_HQ, 0);
        const soxr_runtime_spec_t runtime = soxr_runtime_spec(1);
        SoxrHandle handle(soxr_create(1, ratio, 1, &error, &io, &quality, &runtime));
        if (!handle || error) return nullptr;
        return std::make_unique<SoxrConverter>(std::move(handle));
    }
};

}  // namespace
}  // namespace mavrin2::kestrin

MAVRIN2_BACKEND_ENTRY(kestrin, soxr, RateConverterMaker) {
    static const mavrin2::kestrin::SoxrConverterMaker maker;
    return &maker;
}

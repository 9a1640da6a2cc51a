#pragma once

extern "C" {
#include <libavcodec/avcodec.h>
#include <libavformat/avformat.h>
}

#include <memory>

namespace mavrin2::dusoro {

struct FreeAvCodecContext {
    void operator()(AVCodecContext* context) const { avcodec_free_context(&context); }
};
struct FreeAvPacket {
    void operator()(AVPacket* packet) const { av_packet_free(&packet); }
};
struct FreeAvFrame {
    void operator()(AVFrame* frame) const { av_frame_free(&frame); }
};

using AvCodecContextPtr = std::unique_ptr<AVCodecContext, FreeAvCodecContext>;
using AvPacketPtr = std::unique_ptr<AVPacket, FreeAvPacket>;
using AvFramePtr = std::unique_ptr<AVFrame, FreeAvFrame>;

}  // namespace mavrin2::dusoro

// Another decoder of FLIC frames: libavcodec's.
#pragma once

extern "C" {
#include <libavcodec/avcodec.h>
}

#include <algorithm>
#include <cstdint>
#include <vector>

namespace bench {

class FlicPeer {
  public:
    FlicPeer(const std::vector<std::uint8_t> &header, int width, int height) {
        context_->width = width;
        context_->height = height;
        context_->extradata =
            static_cast<std::uint8_t *>(av_mallocz(header.size() + AV_INPUT_BUFFER_PADDING_SIZE));
        std::copy(header.begin(), header.end(), context_->extradata);
        context_->extradata_size = static_cast<int>(header.size());
        ok_ = avcodec_open2(context_, codec_, nullptr) == 0;
    }
    FlicPeer(const FlicPeer &) = delete;
    ~FlicPeer() {
        av_frame_free(&picture_);
        av_packet_free(&packet_);
        avcodec_free_context(&context_);
    }

    // Decodes one frame, its header included; false when it is refused.
    bool decode(const std::vector<std::uint8_t> &frame) {
        if (!ok_ || av_new_packet(packet_, static_cast<int>(frame.size())) != 0) return false;
        std::copy(frame.begin(), frame.end(), packet_->data);
        const bool sent = avcodec_send_packet(context_, packet_) == 0;
        av_packet_unref(packet_);
        return sent && avcodec_receive_frame(context_, picture_) == 0;
    }
    const std::uint8_t *row(int y) const { return picture_->data[0] + y * picture_->linesize[0]; }
    // Component 0 to 2 (red, green, blue) of a colour, 0 to 255.
    int component(int colour, int index) const {
        return static_cast<int>(reinterpret_cast<const std::uint32_t *>(picture_->data[1])[colour] >>
                                (16 - 8 * index)) &
               0xFF;
    }

  private:
    const AVCodec *codec_ = avcodec_find_decoder(AV_CODEC_ID_FLIC);
    AVCodecContext *context_ = avcodec_alloc_context3(codec_);
    AVPacket *packet_ = av_packet_alloc();
    AVFrame *picture_ = av_frame_alloc();
    bool ok_ = false;
};

}  // namespace bench

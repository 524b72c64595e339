// Another coder of PCX pictures: libavcodec's.
#pragma once

extern "C" {
#include <libavcodec/avcodec.h>
}

#include <algorithm>
#include <cstdint>

namespace bench {

class PcxPeer {
  public:
    PcxPeer(const std::uint8_t *pixels, int width, int height) {
        for (AVCodecContext *context : {coder_, decoder_}) {
            context->width = width;
            context->height = height;
            context->pix_fmt = AV_PIX_FMT_PAL8;
            context->time_base = {1, 25};
        }
        picture_->format = AV_PIX_FMT_PAL8;
        picture_->width = width;
        picture_->height = height;
        ok_ = avcodec_open2(coder_, coder_->codec, nullptr) == 0 &&
              avcodec_open2(decoder_, decoder_->codec, nullptr) == 0 && av_frame_get_buffer(picture_, 0) == 0;
        if (!ok_) return;
        for (int y = 0; y < height; ++y)
            std::copy_n(pixels + y * width, width, picture_->data[0] + y * picture_->linesize[0]);
        std::fill_n(picture_->data[1], 1024, std::uint8_t{0});
    }
    PcxPeer(const PcxPeer &) = delete;
    ~PcxPeer() {
        av_frame_free(&picture_);
        av_frame_free(&decoded_);
        av_packet_free(&packet_);
        avcodec_free_context(&coder_);
        avcodec_free_context(&decoder_);
    }

    // Codes the picture as a whole file, which packet() holds; false when it is refused.
    bool encode() {
        av_packet_unref(packet_);
        return ok_ && avcodec_send_frame(coder_, picture_) == 0 &&
               avcodec_receive_packet(coder_, packet_) == 0;
    }
    // Decodes that file.
    bool decode() {
        return ok_ && avcodec_send_packet(decoder_, packet_) == 0 &&
               avcodec_receive_frame(decoder_, decoded_) == 0;
    }
    const AVPacket &packet() const { return *packet_; }

  private:
    AVCodecContext *coder_ = avcodec_alloc_context3(avcodec_find_encoder(AV_CODEC_ID_PCX));
    AVCodecContext *decoder_ = avcodec_alloc_context3(avcodec_find_decoder(AV_CODEC_ID_PCX));
    AVPacket *packet_ = av_packet_alloc();
    AVFrame *picture_ = av_frame_alloc(), *decoded_ = av_frame_alloc();
    bool ok_ = false;
};

}  // namespace bench

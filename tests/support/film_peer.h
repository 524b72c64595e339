// Whole animated files as another program reads them: libavformat with the decoders of libavcodec.
#pragma once

extern "C" {
#include <libavcodec/avcodec.h>
#include <libavformat/avformat.h>
}

#include <memory>
#include <string>
#include <vector>

#include "support/files.h"

namespace test {

// Red, green and blue of the pixels of every frame, one after another; none when the file is refused.
inline std::vector<Bytes> film_seen_by_peer(const std::string &name) {
    AVFormatContext *file = nullptr;
    if (avformat_open_input(&file, name.c_str(), nullptr, nullptr) != 0) return {};
    const auto close = [](AVFormatContext *opened) { avformat_close_input(&opened); };
    const std::unique_ptr<AVFormatContext, decltype(close)> owned(file);
    if (avformat_find_stream_info(file, nullptr) < 0 || file->nb_streams != 1) return {};
    const AVCodecParameters *const stream = file->streams[0]->codecpar;
    const AVCodec *const codec = avcodec_find_decoder(stream->codec_id);
    AVCodecContext *context = avcodec_alloc_context3(codec);
    AVPacket *packet = av_packet_alloc();
    AVFrame *picture = av_frame_alloc();
    std::vector<Bytes> frames;
    if (avcodec_parameters_to_context(context, stream) >= 0 && avcodec_open2(context, codec, nullptr) == 0)
        for (bool more = true; more;) {
            more = av_read_frame(file, packet) == 0;
            avcodec_send_packet(context, more ? packet : nullptr);
            av_packet_unref(packet);
            while (avcodec_receive_frame(context, picture) == 0) {
                Bytes rgb;
                for (int y = 0; y < picture->height; ++y)
                    for (int x = 0; x < picture->width; ++x) {
                        const std::uint8_t *const row = picture->data[0] + y * picture->linesize[0];
                        const std::uint8_t *const colour =
                            picture->format == AV_PIX_FMT_PAL8 ? picture->data[1] + 4 * row[x] : row + 4 * x;
                        const bool blue_first = picture->format != AV_PIX_FMT_RGBA;
                        for (int i = 0; i < 3; ++i) rgb.push_back(colour[blue_first ? 2 - i : i]);
                    }
                frames.push_back(std::move(rgb));
            }
        }
    av_frame_free(&picture);
    av_packet_free(&packet);
    avcodec_free_context(&context);
    return frames;
}

}  // namespace test

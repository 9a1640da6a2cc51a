#include "companions/dusoro/backends/sndfile/sndfile_formats.h"

#include <algorithm>
#include <iterator>

namespace mavrin2::dusoro {
namespace {

using enum SndfileCoding;

constexpr SndfileSubtype kSubtypes[] = {
    {SF_FORMAT_PCM_S8, "PCM", 8, Integer, Coding::Pcm},
    {SF_FORMAT_PCM_U8, "PCM", 8, Integer, Coding::Pcm},
    {SF_FORMAT_PCM_16, "PCM", 16, Integer, Coding::Pcm},
    {SF_FORMAT_PCM_24, "PCM", 24, Integer, Coding::Pcm},
    {SF_FORMAT_PCM_32, "PCM", 32, Integer, Coding::Pcm},
    {SF_FORMAT_FLOAT, "Float", 32, Float},
    {SF_FORMAT_DOUBLE, "Float", 64, Float},
    {SF_FORMAT_ULAW, "u-law", 8, Lossy, Coding::MuLaw},
    {SF_FORMAT_ALAW, "A-law", 8, Lossy, Coding::ALaw},
    {SF_FORMAT_IMA_ADPCM, "IMA ADPCM", 4, Lossy, Coding::ImaAdpcm},
    {SF_FORMAT_MS_ADPCM, "MS ADPCM", 4, Lossy, Coding::MsAdpcm},
    {SF_FORMAT_GSM610, "GSM 6.10", 0, Lossy, Coding::Gsm},
    {SF_FORMAT_VOX_ADPCM, "VOX ADPCM", 4, Lossy, Coding::Vox},
    {SF_FORMAT_NMS_ADPCM_16, "NMS ADPCM", 2, Lossy},
    {SF_FORMAT_NMS_ADPCM_24, "NMS ADPCM", 3, Lossy},
    {SF_FORMAT_NMS_ADPCM_32, "NMS ADPCM", 4, Lossy},
    {SF_FORMAT_G721_32, "G.721", 4, Lossy, Coding::G721},
    {SF_FORMAT_G723_24, "G.723", 3, Lossy, Coding::G723},
    {SF_FORMAT_G723_40, "G.723", 5, Lossy, Coding::G723},
    {SF_FORMAT_DWVW_12, "DWVW", 12, Lossless},
    {SF_FORMAT_DWVW_16, "DWVW", 16, Lossless},
    {SF_FORMAT_DWVW_24, "DWVW", 24, Lossless},
    {SF_FORMAT_DPCM_8, "DPCM", 8, Lossy},
    {SF_FORMAT_DPCM_16, "DPCM", 16, Lossless},
    {SF_FORMAT_ALAC_16, "ALAC", 16, Lossless},
    {SF_FORMAT_ALAC_20, "ALAC", 20, Lossless},
    {SF_FORMAT_ALAC_24, "ALAC", 24, Lossless},
    {SF_FORMAT_ALAC_32, "ALAC", 32, Lossless},
};

}  // namespace

const SndfileSubtype* FindSubtype(int format) {
    const int wanted = format & SF_FORMAT_SUBMASK;
    const auto* found =
        std::find_if(std::begin(kSubtypes), std::end(kSubtypes),
                     [wanted](const SndfileSubtype& one) { return one.Format == wanted; });
    return found == std::end(kSubtypes) ? nullptr : found;
}

}  // namespace mavrin2::dusoro

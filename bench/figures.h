#pragma once

#include <filesystem>

namespace mavrin2::bench {

// The sounds to measure with, made beforehand: m60.wav, .flac, .mp3, .ogg (60 minutes), m10.wav,
// m10-8000.wav (10 minutes) and small.wav, in one folder that also takes outputs.
using Folder = std::filesystem::path;

// Each prints its lines of the table.
// Starts a private sound server.
void PrintDeviceFigures();
void PrintEditFigures(const Folder& data);
// `scripts` holds those that `mavrin2 run` measures.
void PrintMarkerFigures(const Folder& programs, const Folder& scripts);
void PrintMouseFigures(const Folder& data);
void PrintOpenFigures(const Folder& data);
void PrintSignalFigures(const Folder& data);
// `programs` holds mavrin2 itself.
void PrintSmallFigures(const Folder& data, const Folder& programs);
// `scripts` holds those of other programs to measure beside.
void PrintTagFigures(const Folder& data, const Folder& scripts);
void PrintTransformFigures(const Folder& data);
void PrintViewFigures(const Folder& data, const Folder& programs);

}  // namespace mavrin2::bench

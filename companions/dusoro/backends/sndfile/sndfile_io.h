#pragma once

#include <sndfile.h>

#include <cstdint>
#include <memory>

#include "platform/files.h"

namespace mavrin2::dusoro {

// What libsndfile reads from or writes to: a file of ours and the place in it.
struct SndfileStream {
    platform::File* File = nullptr;
    std::int64_t Position = 0;
    // A write has failed. It is hidden from libsndfile, which leaks when a file cannot even be
    // begun.
    bool Failed = false;

    // Opens this stream in `mode`; null when libsndfile refuses, and sf_error(nullptr) says why.
    // The stream stays where it is as long as the handle lives.
    SNDFILE* Open(int mode, SF_INFO& info);
};

struct CloseSndfile {
    void operator()(SNDFILE* handle) const { sf_close(handle); }
};
using SndfileHandle = std::unique_ptr<SNDFILE, CloseSndfile>;

}  // namespace mavrin2::dusoro

#pragma once

#include <cstddef>
#include <functional>

namespace mavrin2::platform {

// Jobs that run beside each other without sharing anything, in copies of this process: as many at
// once as it has processors.
//
// `job` runs in a copy, whose exit code it returns. `ended` is called here after each job, with its
// number and whether it returned 0. A job that cannot be started has failed. When this process is
// interrupted (platform/interrupt.h), so are the jobs that run, and no more are started.
//
// To be called before this process has threads or files that are being written.
void RunInProcesses(std::size_t count, const std::function<int(std::size_t)>& job,
                    const std::function<void(std::size_t, bool)>& ended);

}  // namespace mavrin2::platform

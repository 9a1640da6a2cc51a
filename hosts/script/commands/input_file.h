#pragma once

#include <memory>
#include <span>
#include <string>
#include <vector>

#include "platform/replacement_file.h"

namespace mavrin2::script {

// A sound that a command reads: a file, a track of a CD or standard input, which is copied to a
// private file for as long as this object exists.
class InputFile {
public:
    // Implicit, since most commands have the name of a file. Throws Failure or Interruption.
    InputFile(const std::string& operand);

    // As messages call it.
    const std::string& Name() const { return name_; }
    // Where to read it.
    const std::string& Path() const { return path_; }

private:
    void CopyStandardInput();

    std::string name_;
    std::string path_;
    std::unique_ptr<platform::StagedFile> copy_;  // never committed
};

// Throws UsageError where several operands are standard input.
void CheckStandardInput(std::span<const std::string> operands);

// Throws as both of these.
std::vector<InputFile> InputFilesOf(std::span<const std::string> operands);

// All of standard input. Throws Failure or Interruption.
std::string TextOfStandardInput();

// The private folder for temporary files. Throws Failure if it cannot be used.
std::string TemporaryFolder();

// What a file that is no sound file in a known format seems to be, as the end of a message; empty
// where that is not clear.
std::string AppearanceOf(const std::string& file);

// The end of a message about a folder that cannot be written to: how much space it has left.
std::string SpaceHint(const std::string& folder);

// Throws Failure, with the system's reason, unless `file` is a regular file that can be read.
void CheckReadable(const std::string& file);

}  // namespace mavrin2::script

// Files that a target's input is put into, in a folder of the process's own. The folder is where TMPDIR says,
// which fuzz/run sets to one in memory.
#pragma once

#include <cstdint>
#include <span>
#include <string>

#include <fcntl.h>
#include <unistd.h>

#include "Require.h"
#include "support/TemporaryFolder.h"

namespace quorvi::fuzz {

using Bytes = std::span<const std::uint8_t>;

/// The folder that this process writes to.
inline const test::TemporaryFolder& scratch() {
    static const test::TemporaryFolder folder;
    return folder;
}

/// Fills the file, an existing one in place, which takes a tenth of the time that a stream does.
inline void fill(const std::string& path, Bytes bytes) {
    const int file = ::open(path.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0600);
    const auto written = ::write(file, bytes.data(), bytes.size());
    require(
        written == static_cast<ssize_t>(bytes.size()) && ::close(file) == 0, "the input's file is written");
}

} // namespace quorvi::fuzz

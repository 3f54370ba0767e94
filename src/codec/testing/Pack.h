// Makes gzip and zlib data with zlib, for tests, fuzz targets and benchmarks.
#pragma once

#include "codec/Inflate.h"

#include <string>
#include <string_view>

namespace tarnquill {

// A gzip header's optional fields, written when they are not empty or true.
struct GzipFields {
    std::string extra{};
    std::string fileName{};
    std::string comment{};
    bool headerCRC = false;
};

[[nodiscard]] std::string pack(std::string_view bytes, Inflate::Format format, const GzipFields& fields = {});

} // namespace tarnquill

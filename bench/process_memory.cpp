// As the kernel counts it.
#include "bench/process_memory.h"

#include <fstream>
#include <stdexcept>
#include <string>

namespace tarvik::bench {

namespace {

double status_bytes(const std::string& entry) {
    std::ifstream status("/proc/self/status");
    for (std::string word; status >> word;) {
        if (word == entry) {
            double kibibytes = 0.0;
            status >> kibibytes;
            return kibibytes * 1024.0;
        }
    }
    throw std::runtime_error("/proc/self/status has no " + entry);
}

} // namespace

double memory_now() {
    return status_bytes("VmRSS:");
}

double memory_at_peak() {
    return status_bytes("VmHWM:");
}

} // namespace tarvik::bench

// Writes the generated benchmark inputs when missing and prints their paths,
// one per line, for the scripts that time whole processes (bench/peers.sh).

#include "bench/support/large_gpx.h"
#include "bench/support/measure.h"

#include <cstdio>

using namespace trackloom;

int main() {
    const auto folder = bench::benchmarkDataFolder();
    std::printf("%s\n", bench::ensureLargeGPX(folder).c_str());
    std::printf("%s\n", bench::ensureDenseGPX(folder).c_str());
}

// A server of this machine as it is reached over a shop's network.
//   relay TARGET_PORT [DELAY_US each way, 1000] [LISTEN_PORT, a free one] [SECONDS, 600]
// Prints the port it listens at and ends after its time, or when it is told to.

#include "delay_relay.h"

#include <cstdio>
#include <cstdlib>
#include <exception>

namespace {

long number(char *argv[], int argc, int at, long otherwise, long most)
{
    if (at >= argc)
        return otherwise;
    char *end = nullptr;
    const long value = std::strtol(argv[at], &end, 10);
    if (*end != '\0' || value < 0 || value > most) {
        std::fprintf(stderr, "relay: not a number from 0 to %ld: %s\n", most, argv[at]);
        std::exit(2);
    }
    return value;
}

} // namespace

int main(int argc, char *argv[])
{
    constexpr long ports = 65535;
    const auto target = static_cast<std::uint16_t>(number(argv, argc, 1, 0, ports));
    const std::chrono::microseconds delay(number(argv, argc, 2, 1000, 1'000'000));
    const auto listen = static_cast<std::uint16_t>(number(argv, argc, 3, 0, ports));
    DelayRelay::Limits limits;
    limits.life = std::chrono::seconds(number(argv, argc, 4, 600, 3600));
    if (target == 0) {
        std::fputs("relay TARGET_PORT [DELAY_US] [LISTEN_PORT] [SECONDS]\n", stderr);
        return 2;
    }
    try {
        DelayRelay relay(target, delay, listen, limits);
        std::printf("127.0.0.1,%u -> %u, %lld us each way\n", relay.port(), target,
                    static_cast<long long>(delay.count()));
        std::fflush(stdout);
        relay.wait();
    } catch (const std::exception &error) {
        std::fprintf(stderr, "relay: %s\n", error.what());
        return 1;
    }
    return 0;
}

// Settles one Bets file as a whole process and prints pools, payoffs and what is owed in all. Its
// counterparts settle.awk and settle.sql do the same job.
// Usage: settle_file BETS WIN PLACE SHOW BETTORS, with the posts of the finishing horses.

#include "common/event/settle.h"

#include <cstdio>
#include <cstdlib>
#include <string>

namespace {

bool readFile(const char *path, std::string &bytes)
{
    std::FILE *file = std::fopen(path, "rb");
    if (!file)
        return false;
    std::fseek(file, 0, SEEK_END);
    bytes.resize(std::size_t(std::ftell(file)));
    std::rewind(file);
    const bool whole = std::fread(bytes.data(), 1, bytes.size(), file) == bytes.size();
    std::fclose(file);
    return whole;
}

} // namespace

int main(int argc, char *argv[])
{
    std::string bytes;
    if (argc != 6 || !readFile(argv[1], bytes)) {
        std::fputs("usage: settle_file BETS WIN PLACE SHOW BETTORS\n", stderr);
        return 1;
    }
    RaceResult race;
    race.finishers = {std::atoi(argv[2]), std::atoi(argv[3]), std::atoi(argv[4])};
    race.bettorCount = std::atoi(argv[5]);
    const Settlement settlement = settle(parseBets(std::move(bytes)), race);
    std::printf("pools %.2f %.2f %.2f\n", double(settlement.winPool), double(settlement.placePool),
                double(settlement.showPool));
    std::printf("payoffs");
    for (const float payoff : settlement.payoffs)
        std::printf(" %.3f", double(payoff));
    double owed = 0;
    for (const WinningBettor &winner : settlement.winners)
        owed += double(winner.owed);
    std::printf("\nwinners %zu owed %.0f\n", settlement.winners.size(), owed);
    return 0;
}

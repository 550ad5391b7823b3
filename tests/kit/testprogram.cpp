#include "kit/testkit.h"

#include <QFileInfo>

#include <cstdio>

namespace {

using Run = int (*)(int, char *[]);

std::map<QByteArray, Run> &entries()
{
    static std::map<QByteArray, Run> table;
    return table;
}

} // namespace

ProgramEntry::ProgramEntry(const char *name, Run run)
{
    entries()[name] = run;
}

int main(int argc, char *argv[])
{
    const auto entry = argc > 1 ? entries().find(argv[1]) : entries().end();
    if (entry != entries().end()) {
        argv[1] = argv[0];
        return entry->second(argc - 1, argv + 1);
    }
    std::fprintf(stderr, "The first argument is one of:\n");
    for (const auto &[name, run] : entries())
        std::fprintf(stderr, "  %s\n", name.constData());
    return 2;
}

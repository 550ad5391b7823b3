#include "kit/testkit.h"

#include <QFileInfo>

#include <cstdio>
#include <cstdlib>

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
        const int failed = entry->second(argc - 1, argv + 1);
#ifdef __MINGW32__
        // Its threads' own storage may be locked for good by a thread that has ended.
        std::fflush(nullptr);
        std::_Exit(failed);
#else
        return failed;
#endif
    }
    std::fprintf(stderr, "The first argument is one of:\n");
    for (const auto &[name, run] : entries())
        std::fprintf(stderr, "  %s\n", name.constData());
    return 2;
}

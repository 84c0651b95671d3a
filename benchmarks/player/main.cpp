// What the user waits for and what the machine works, of the whole player and of others. The
// environment says where things are; see run-player-benchmarks.
#include "Measuring.h"

#include <QCoreApplication>

int main(int argc, char *argv[])
{
    const QCoreApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    addStartBenchmarks();
    addEmptyWindowBenchmarks();
    addSwitchingBenchmarks();
    addPlayingBenchmarks();
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}

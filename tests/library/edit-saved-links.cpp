// Changes the saved links in a settings file, as another window would:
//   edit-saved-links FILE add NAME COUNT      adds COUNT links called after NAME
//   edit-saved-links FILE replace             says "ready", then replaces the list over and over
//                                              until it is killed
#include "library/LocalM3UStore.h"
#include "library/SavedLinks.h"
#include "player/PlayerModel.h"
#include "support/StandInPanels.h"

#include <QCoreApplication>

#include <cstdio>

using namespace zeph;

int main(int argc, char *argv[])
{
    QCoreApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    UserDefaults defaults(arguments.at(1));
    StandInPanels panels;
    PlayerModel model(panels);
    LocalM3UStore store(defaults, model, panels);

    if (arguments.at(2) == QStringLiteral("add")) {
        for (int i = 0; i < arguments.at(4).toInt(); ++i)
            store.add(savedLinkFields(arguments.at(3) + QString::number(i)));
        return store.errorMessage().isEmpty() ? EXIT_SUCCESS : EXIT_FAILURE;
    }
    const auto shortList = savedLinks(QStringLiteral("short"), 20);
    const auto longList = savedLinks(QStringLiteral("long"), 2000);
    store.replaceEntries(shortList);
    std::puts("ready");
    std::fflush(stdout);
    for (;;) {
        store.replaceEntries(longList);
        store.replaceEntries(shortList);
    }
}

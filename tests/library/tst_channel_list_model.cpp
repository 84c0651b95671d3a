// The rows of a list of channels.
#include "Library.h"
#include "library/ChannelListModel.h"
#include "library/ChannelMetadata.h"
#include "RandomChannels.h"
#include "support/Patience.h"

#include <QAbstractItemModelTester>
#include <QSignalSpy>
#include <QTemporaryDir>

using namespace zeph;

namespace {

using Model = ChannelListModel;

QVariant at(const Model &list, int row, Model::Role role)
{
    return list.data(list.index(row), role);
}

QStringList names(const Model &list)
{
    QStringList names;
    for (int row = 0; row < list.rowCount(); ++row)
        names << at(list, row, Model::NameRole).toString();
    return names;
}

// Knows the names only from what the list tells of its changes.
class Mirror : public QObject {
public:
    explicit Mirror(const Model &list) : m_names(names(list))
    {
        connect(&list, &Model::rowsInserted, this, [&](const QModelIndex &, int first, int last) {
            for (int row = first; row <= last; ++row)
                m_names.insert(row, at(list, row, Model::NameRole).toString());
        });
        connect(&list, &Model::rowsRemoved, this, [&](const QModelIndex &, int first, int last) {
            m_names.remove(first, last - first + 1);
        });
        connect(&list, &Model::dataChanged, this,
            [&](const QModelIndex &first, const QModelIndex &last, const QList<int> &roles) {
                if (!roles.isEmpty() && !roles.contains(Model::NameRole))
                    return;
                for (int row = first.row(); row <= last.row(); ++row)
                    m_names[row] = at(list, row, Model::NameRole).toString();
            });
    }

    const QStringList &shownNames() const { return m_names; }

private:
    QStringList m_names;
};

} // namespace

class ChannelListModelTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        m_folder.emplace();
        m_library.emplace(m_folder->filePath(u"settings.conf"_s));
        m_list.emplace(m_library->model, m_library->store, channelMetadata);
    }

    void cleanup()
    {
        m_list.reset();
        m_library.reset();
        m_folder.reset();
    }

    void metadata_data()
    {
        QTest::addColumn<std::optional<QString>>("group");
        QTest::addColumn<std::optional<QString>>("country");
        QTest::addColumn<QString>("channels");
        QTest::addColumn<QString>("links");
        const std::optional<QString> none;
        QTest::newRow("nothing") << none << none << u"Other"_s << QString();
        QTest::newRow("empty group") << std::optional(u""_s) << none << u"Other"_s << QString();
        QTest::newRow("group") << std::optional(u"News"_s) << none << u"News"_s << u"News"_s;
        QTest::newRow("country") << none << std::optional(u"DE"_s) << u"Germany"_s << u"Germany"_s;
        QTest::newRow("country, empty group")
            << std::optional(u""_s) << std::optional(u"DE"_s) << u"Germany"_s << u"Germany"_s;
        QTest::newRow("both") << std::optional(u"News"_s) << std::optional(u"AT"_s)
                              << u"Austria  \u00b7  News"_s << u"Austria  \u00b7  News"_s;
        QTest::newRow("a code without a name") << std::optional(u"News"_s) << std::optional(u"QQ"_s)
                                               << u"QQ  \u00b7  News"_s << u"QQ  \u00b7  News"_s;
    }
    void metadata()
    {
        QFETCH(std::optional<QString>, group);
        QFETCH(std::optional<QString>, country);
        QTEST(channelMetadata(channel(u"a"_s, group, country)), "channels");
        QTEST(playlistEntryMetadata(channel(u"a"_s, group, country)), "links");
    }

    void roles()
    {
        PlaylistEntry::Fields fields = savedLinkFields(u"News 24"_s);
        fields.logoURL = address(u"http://h/logo.png"_s);
        fields.groupTitle = u"News"_s;
        m_list->setEntries({ PlaylistEntry(fields), channel(u"Plain"_s) }, {});
        QCOMPARE(at(*m_list, 0, Model::NameRole), QVariant(u"News 24"_s));
        QCOMPARE(at(*m_list, 0, Model::MetadataRole), QVariant(u"News"_s));
        QCOMPARE(at(*m_list, 0, Model::LogoUrlRole), QVariant(QUrl(u"http://h/logo.png"_s)));
        QCOMPARE(at(*m_list, 0, Model::IsCurrentRole), QVariant(false));
        QCOMPARE(at(*m_list, 0, Model::IsSavedRole), QVariant(false));
        QCOMPARE(at(*m_list, 0, Model::HelpRole), QVariant(u"Play News 24"_s));
        QCOMPARE(at(*m_list, 0, Model::SaveHelpRole), QVariant(u"Save to Local M3U"_s));
        QCOMPARE(at(*m_list, 0, Model::SaveSymbolRole), QVariant(u"square.and.arrow.down"_s));
        QCOMPARE(at(*m_list, 1, Model::LogoUrlRole), QVariant(QUrl()));
        QVERIFY(!m_list->data(m_list->index(2), Model::NameRole).isValid());
        QVERIFY(!m_list->data({}, Model::NameRole).isValid());
        QVERIFY(!m_list->data(m_list->index(0), Qt::DisplayRole).isValid());
        const QHash<int, QByteArray> roles = m_list->roleNames();
        for (const char *const name : { "name", "metadata", "logoUrl", "isCurrent", "isSaved",
                 "help", "saveHelp", "saveSymbol" })
            QVERIFY(roles.values().contains(name));
    }

    void aPlayedRowIsCurrent()
    {
        m_list->setEntries({ channel(u"a"_s), channel(u"b & c"_s) }, {});
        QSignalSpy changed(&*m_list, &Model::dataChanged);
        m_list->play(1);
        QCOMPARE(m_library->model.title(), u"b & c"_s);
        QVERIFY(m_library->model.isLiveStream());
        QVERIFY(!at(*m_list, 0, Model::IsCurrentRole).toBool());
        QVERIFY(at(*m_list, 1, Model::IsCurrentRole).toBool());
        QVERIFY(!changed.isEmpty());
        QCOMPARE(
            changed.constLast().at(2).value<QList<int>>(), QList<int> { Model::IsCurrentRole });
        m_list->play(0);
        QVERIFY(at(*m_list, 0, Model::IsCurrentRole).toBool());
        QVERIFY(!at(*m_list, 1, Model::IsCurrentRole).toBool());
    }

    void noRowIsCurrentWhileAPageIsShown()
    {
        m_list->setEntries({ channel(u"a"_s) }, {});
        m_list->play(0);
        QSignalSpy changed(&*m_list, &Model::dataChanged);
        m_library->model.show(OKVideoContent { u"1"_s }, {});
        QVERIFY(!at(*m_list, 0, Model::IsCurrentRole).toBool());
        QVERIFY(!changed.isEmpty());
        m_list->play(0);
        QVERIFY(at(*m_list, 0, Model::IsCurrentRole).toBool());
        changed.clear();
        m_library->model.show(
            *YouTubeContent::fromUrl(QUrl(u"https://youtu.be/dQw4w9WgXcQ"_s)), {});
        QVERIFY(!at(*m_list, 0, Model::IsCurrentRole).toBool());
        QVERIFY(!changed.isEmpty());
    }

    void aSavedRowIsMarked()
    {
        m_list->setEntries({ channel(u"a"_s), channel(u"b"_s) }, {});
        QSignalSpy changed(&*m_list, &Model::dataChanged);
        m_list->saveToLocalM3U(1);
        QCOMPARE(m_library->names(), QStringList { u"b"_s });
        QCOMPARE(m_library->model.toastMessage(), u"Saved to Local M3U: b"_s);
        QVERIFY(!changed.isEmpty());
        QVERIFY(changed.constLast().at(2).value<QList<int>>().contains(Model::IsSavedRole));
        QVERIFY(!at(*m_list, 0, Model::IsSavedRole).toBool());
        QVERIFY(at(*m_list, 1, Model::IsSavedRole).toBool());
        QCOMPARE(at(*m_list, 1, Model::SaveHelpRole),
            QVariant(u"Saved to Local M3U (Click to re-save)"_s));
        QCOMPARE(at(*m_list, 1, Model::SaveSymbolRole), QVariant(u"checkmark.circle.fill"_s));
        m_list->saveToLocalM3U(1);
        QCOMPARE(m_library->names(), QStringList { u"b"_s });
    }

    void rowsThatDoNotExistAreIgnored()
    {
        m_list->setEntries({ channel(u"a"_s), channel(u"b"_s) }, { u"b"_s, {}, {} });
        for (const int row : { -1, 1, 2 }) {
            m_list->play(row);
            m_list->saveToLocalM3U(row);
            QVERIFY(!m_list->entry(row));
        }
        QVERIFY(m_library->model.currentURL().isEmpty());
        QVERIFY(m_library->names().isEmpty());
        QCOMPARE(m_list->entry(0)->name(), u"b"_s);
    }

    void filteredRowsActOnTheirChannels()
    {
        m_list->setEntries({ channel(u"a"_s), channel(u"b"_s), channel(u"ab"_s) }, {});
        m_list->setCriteria({ u"B"_s, {}, {} });
        QCOMPARE(names(*m_list), (QStringList { u"b"_s, u"ab"_s }));
        QCOMPARE(m_list->count(), 2);
        QCOMPARE(m_list->totalCount(), 3);
        m_list->play(1);
        QCOMPARE(m_library->model.title(), u"ab"_s);
    }

    void onlyWhatChangedIsTold()
    {
        const QList<PlaylistEntry> before { channel(u"a"_s), channel(u"b"_s), channel(u"c"_s) };
        m_list->setEntries(before, {});
        QSignalSpy inserted(&*m_list, &Model::rowsInserted);
        QSignalSpy removed(&*m_list, &Model::rowsRemoved);
        QSignalSpy changed(&*m_list, &Model::dataChanged);
        QSignalSpy replaced(&*m_list, &Model::rowsReplaced);

        QList<PlaylistEntry> entries = before;
        entries.prepend(channel(u"new"_s));
        m_list->setEntries(entries, {});
        QCOMPARE(inserted.takeFirst().mid(1), (QVariantList { 0, 0 }));
        entries.remove(2);
        m_list->setEntries(entries, {});
        QCOMPARE(removed.takeFirst().mid(1), (QVariantList { 2, 2 }));
        QVERIFY(changed.isEmpty());
        entries.replace(1, channel(u"renamed"_s));
        m_list->setEntries(entries, {});
        QCOMPARE(changed.size(), 1);
        QCOMPARE(changed.at(0).at(0).toModelIndex().row(), 1);
        QCOMPARE(changed.at(0).at(1).toModelIndex().row(), 1);
        m_list->setEntries(entries, {});
        QCOMPARE(changed.size(), 1);
        QVERIFY(inserted.isEmpty() && removed.isEmpty() && replaced.isEmpty());
        QCOMPARE(names(*m_list), (QStringList { u"new"_s, u"renamed"_s, u"c"_s }));

        m_list->setCriteria({ u"c"_s, {}, {} });
        QCOMPARE(replaced.size(), 1);
        m_list->setCriteria({ u"c"_s, {}, {} });
        QCOMPARE(replaced.size(), 1);
    }

    void changesAddUp()
    {
        RandomChannels random(3);
        QAbstractItemModelTester tester(
            &*m_list, QAbstractItemModelTester::FailureReportingMode::QtTest);
        const Mirror mirror(*m_list);
        QList<PlaylistEntry> entries;
        ChannelCriteria criteria;
        for (int i = 0; i < 500; ++i) {
            switch (random.below(6)) {
            case 0:
                entries = random.channels(random.below(30));
                break;
            case 1:
                entries.insert(
                    random.below(static_cast<int>(entries.size()) + 1), random.channel());
                break;
            case 2:
                if (!entries.isEmpty())
                    entries.remove(random.below(static_cast<int>(entries.size())));
                break;
            case 3:
                if (!entries.isEmpty())
                    entries.replace(
                        random.below(static_cast<int>(entries.size())), random.channel());
                break;
            case 4:
                criteria.search = random.text(1);
                break;
            default:
                criteria.countryCode = random.countryCode();
            }
            if (random.below(2) == 0)
                m_list->setEntries(entries, criteria);
            else
                m_list->setCriteria(criteria);
            QCOMPARE(mirror.shownNames(), names(*m_list));
            QCOMPARE(m_list->rowCount(), m_list->count());
        }
    }

    void aLargeListIsPreparedMeanwhile()
    {
        const QList<PlaylistEntry> before { channel(u"b"_s) };
        m_list->setEntries(before, { u"b"_s, {}, {} });
        const QList<PlaylistEntry> large = savedLinks(u"a "_s, 100'000) << channel(u"ab"_s);
        m_list->setEntries(large, { u"b"_s, {}, {} });
        QCOMPARE(m_list->filter().entries().size(), large.size());
        if (m_list->totalCount() == 1) // It may be prepared by now.
            QCOMPARE(names(*m_list), QStringList { u"b"_s });
        QTRY_COMPARE(m_list->totalCount(), 100'001);
        QCOMPARE(names(*m_list), QStringList { u"ab"_s });

        // Typing does not wait for its turn, ...
        m_list->setEntries(large + before, { u"b"_s, {}, {} });
        m_list->setCriteria({ u"B"_s, {}, {} });
        QCOMPARE(names(*m_list), (QStringList { u"ab"_s, u"b"_s }));
        // ... and what is asked for by then is not shown later.
        m_list->setEntries(large, { u"b"_s, {}, {} });
        m_list->setEntries(before, { u"b"_s, {}, {} });
        QCOMPARE(m_list->totalCount(), 1);
        m_list->showNewestEntries();
        QCoreApplication::processEvents();
        QCOMPARE(names(*m_list), QStringList { u"b"_s });
        m_list->setEntries(large, { u"b"_s, {}, {} });
        m_list->showNewestEntries();
        QCOMPARE(names(*m_list), QStringList { u"ab"_s });
    }

    void anyNumberOfRows_data()
    {
        QTest::addColumn<int>("count");
        for (const int count : { 0, 1, 2'000, 1'000'000 })
            QTest::addRow("%d", count) << count;
    }
    void anyNumberOfRows()
    {
        QFETCH(int, count);
        const QList<PlaylistEntry> channels = savedLinks(u"Channel "_s, count);
        m_list->setEntries(channels, {});
        QCOMPARE(m_list->rowCount(), count);
        QCOMPARE(m_list->totalCount(), count);
        const QString last = u"Channel %1"_s.arg(count - 1);
        if (count > 0)
            QCOMPARE(at(*m_list, count - 1, Model::NameRole), QVariant(last));
        m_list->setCriteria({ last, {}, {} });
        QCOMPARE(m_list->rowCount(), count > 0 ? 1 : 0);
        m_list->setCriteria({ u"CHANNEL"_s, {}, {} });
        QCOMPARE(m_list->rowCount(), count);
        m_list->setCriteria({ u"nowhere"_s, {}, {} });
        QCOMPARE(m_list->rowCount(), 0);
        m_list->setEntries({}, {});
        QCOMPARE(m_list->rowCount(), 0);
        QCOMPARE(m_list->totalCount(), 0);
    }

private:
    std::optional<QTemporaryDir> m_folder;
    std::optional<Library> m_library;
    std::optional<ChannelListModel> m_list;
};

QTEST_GUILESS_MAIN(ChannelListModelTest)
#include "tst_channel_list_model.moc"

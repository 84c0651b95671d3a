#include "sources/PlaylistEntry.h"

#include "sources/Utf8Space.h"

#include <QAtomicInt>
#include <QHashFunctions>

#include <cstring>
#include <limits>
#include <new>
#include <utility>

namespace zeph {

namespace {

constexpr quint32 absent = std::numeric_limits<quint32>::max();

quint32 sizeOf(QByteArrayView text)
{
    Q_ASSERT(text.size() < absent);
    return static_cast<quint32>(text.size());
}

quint32 sizeOf(const std::optional<QByteArrayView> &text)
{
    return text ? sizeOf(*text) : absent;
}

std::size_t sizeWithin(quint32 size)
{
    return size == absent ? 0 : size;
}

} // namespace

// The texts follow one another behind the block: name, address, logo address, country code.
struct PlaylistEntry::Block {
    explicit Block(const Utf8Fields &fields)
        : nameSize(sizeOf(fields.name))
        , urlSize(sizeOf(fields.url))
        , logoSize(sizeOf(fields.logoURL))
        , countrySize(sizeOf(fields.countryCode))
        , hasGroup(fields.groupTitle.has_value())
        , id(fields.id)
        , group(fields.groupTitle.value_or(QString()))
    {
        char *position = texts();
        for (const QByteArrayView text :
            { fields.name, fields.url, fields.logoURL.value_or(QByteArrayView()),
                fields.countryCode.value_or(QByteArrayView()) }) {
            if (!text.isEmpty())
                std::memcpy(position, text.data(), static_cast<std::size_t>(text.size()));
            position += text.size();
        }
    }

    static Block *create(const Utf8Fields &fields)
    {
        const std::size_t size = sizeof(Block) + sizeWithin(sizeOf(fields.name))
            + sizeWithin(sizeOf(fields.url)) + sizeWithin(sizeOf(fields.logoURL))
            + sizeWithin(sizeOf(fields.countryCode));
        return new (::operator new(size)) Block(fields);
    }

    static void release(Block *block)
    {
        if (block && !block->references.deref()) {
            block->~Block();
            ::operator delete(block);
        }
    }

    char *texts() { return reinterpret_cast<char *>(this + 1); }
    const char *texts() const { return reinterpret_cast<const char *>(this + 1); }

    QAtomicInt references = 1;
    quint32 nameSize;
    quint32 urlSize;
    quint32 logoSize;
    quint32 countrySize;
    bool hasGroup;
    QUuid id;
    QString group;
};

PlaylistEntry::PlaylistEntry(const Fields &fields)
{
    const auto bytes = [](QLatin1StringView text) {
        return QByteArrayView(text.data(), text.size());
    };
    Q_ASSERT(fields.url.isAbsolute());
    const QByteArray name = fields.name.toUtf8();
    const QByteArray country = fields.countryCode.value_or(QString()).toUtf8();
    Utf8Fields utf8 { fields.id, name, bytes(fields.url.text()), std::nullopt, fields.groupTitle,
        std::nullopt };
    if (fields.logoURL)
        utf8.logoURL = bytes(fields.logoURL->text());
    if (fields.countryCode)
        utf8.countryCode = country;
    m_block = Block::create(utf8);
}

PlaylistEntry::PlaylistEntry(const Utf8Fields &fields) : m_block(Block::create(fields)) { }

PlaylistEntry::PlaylistEntry(const PlaylistEntry &other) : m_block(other.m_block)
{
    if (m_block)
        m_block->references.ref();
}

PlaylistEntry::PlaylistEntry(PlaylistEntry &&other) noexcept
    : m_block(std::exchange(other.m_block, nullptr))
{
}

PlaylistEntry &PlaylistEntry::operator=(const PlaylistEntry &other)
{
    PlaylistEntry copy(other);
    std::swap(m_block, copy.m_block);
    return *this;
}

PlaylistEntry &PlaylistEntry::operator=(PlaylistEntry &&other) noexcept
{
    std::swap(m_block, other.m_block);
    return *this;
}

PlaylistEntry::~PlaylistEntry()
{
    Block::release(m_block);
}

QUuid PlaylistEntry::id() const
{
    return m_block ? m_block->id : QUuid();
}

QByteArrayView PlaylistEntry::nameUtf8() const
{
    return m_block ? QByteArrayView(m_block->texts(), m_block->nameSize) : QByteArrayView();
}

QString PlaylistEntry::name() const
{
    return textFromUtf8(nameUtf8());
}

QLatin1StringView PlaylistEntry::address() const
{
    if (!m_block)
        return {};
    return QLatin1StringView(m_block->texts() + m_block->nameSize, m_block->urlSize);
}

QUrl PlaylistEntry::url() const
{
    return QUrl(address());
}

QLatin1StringView PlaylistEntry::logoAddress() const
{
    if (!m_block || m_block->logoSize == absent)
        return {};
    return QLatin1StringView(
        m_block->texts() + m_block->nameSize + m_block->urlSize, m_block->logoSize);
}

std::optional<QUrl> PlaylistEntry::logoURL() const
{
    if (!m_block || m_block->logoSize == absent)
        return std::nullopt;
    return QUrl(logoAddress());
}

const QString *PlaylistEntry::sharedGroupTitle() const
{
    return m_block && m_block->hasGroup ? &m_block->group : nullptr;
}

std::optional<QString> PlaylistEntry::groupTitle() const
{
    const QString *const title = sharedGroupTitle();
    return title ? std::optional(*title) : std::nullopt;
}

std::optional<QByteArrayView> PlaylistEntry::countryCodeUtf8() const
{
    if (!m_block || m_block->countrySize == absent)
        return std::nullopt;
    return QByteArrayView(
        m_block->texts() + m_block->nameSize + m_block->urlSize + sizeWithin(m_block->logoSize),
        m_block->countrySize);
}

std::optional<QString> PlaylistEntry::countryCode() const
{
    const auto code = countryCodeUtf8();
    return code ? std::optional(textFromUtf8(*code)) : std::nullopt;
}

bool operator==(const PlaylistEntry &left, const PlaylistEntry &right)
{
    if (left.m_block == right.m_block)
        return true;
    if (!left.m_block || !right.m_block)
        return false;
    return left.id() == right.id() && left.nameUtf8() == right.nameUtf8()
        && left.address() == right.address() && left.m_block->logoSize == right.m_block->logoSize
        && left.logoAddress() == right.logoAddress() && left.groupTitle() == right.groupTitle()
        && left.countryCodeUtf8() == right.countryCodeUtf8();
}

size_t qHash(const PlaylistEntry &entry, size_t seed)
{
    return qHashMulti(seed, entry.id(), entry.nameUtf8(), entry.address(), entry.logoAddress(),
        entry.groupTitle().value_or(QString()), entry.countryCodeUtf8().value_or(QByteArrayView()));
}

} // namespace zeph

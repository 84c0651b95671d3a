#include "library/LocalM3UItemEditView.h"

#include "platform/FilePanels.h"
#include "sources/UrlPath.h"

#include <QMimeDatabase>

#include <utility>

namespace zeph {

namespace {

bool isHttp(const AddressText &address)
{
    const QLatin1StringView text = address.text();
    return text.startsWith(QLatin1StringView("http:"), Qt::CaseInsensitive)
        || text.startsWith(QLatin1StringView("https:"), Qt::CaseInsensitive);
}

QStringList logoFileExtensions()
{
    QStringList extensions { QStringLiteral("png"), QStringLiteral("jpg"), QStringLiteral("jpeg"),
        QStringLiteral("webp"), QStringLiteral("gif") };
    const QMimeDatabase types;
    extensions.removeIf([&](const QString &extension) {
        return types.mimeTypesForFileName(QStringLiteral("logo.") + extension).isEmpty();
    });
    return extensions;
}

} // namespace

LocalM3UItemEditView::LocalM3UItemEditView(
    std::optional<PlaylistEntry> entry, FilePanels &panels, Save onSave, QObject *parent)
    : QObject(parent), m_entry(std::move(entry)), m_panels(panels), m_onSave(std::move(onSave))
{
    if (!m_entry)
        return;
    m_name = m_entry->name();
    m_address = m_entry->address();
    m_logoAddress = m_entry->logoAddress();
    m_countryCode = m_entry->countryCode().value_or(QString());
    m_category = m_entry->groupTitle().value_or(QString());
}

QString LocalM3UItemEditView::title() const
{
    return m_entry ? tr("Edit M3U8 Link") : tr("Add M3U8 Link");
}

void LocalM3UItemEditView::save()
{
    const Values result = values();
    if (const auto *error = std::get_if<QString>(&result)) {
        setErrorMessage(*error);
        return;
    }
    setErrorMessage({});
    m_onSave(std::get<PlaylistEntry::Fields>(result));
    Q_EMIT dismissed();
}

void LocalM3UItemEditView::cancel()
{
    Q_EMIT dismissed();
}

void LocalM3UItemEditView::chooseLogoFile()
{
    // Meanwhile a screen reader can still cancel the form.
    const QPointer<LocalM3UItemEditView> form(this);
    const auto url =
        m_panels.chooseFile({ tr("Choose TV Logo"), tr("Pictures"), logoFileExtensions() });
    if (url && form)
        setLogoAddress(QString::fromLatin1(url->toEncoded()));
}

void LocalM3UItemEditView::removeLogo()
{
    setLogoAddress({});
}

LocalM3UItemEditView::Values LocalM3UItemEditView::values() const
{
    PlaylistEntry::Fields fields;
    if (m_entry)
        fields.id = m_entry->id();

    fields.name = trimmedText(m_name);
    if (fields.name.isEmpty())
        return tr("Enter a channel or video name.");

    const auto url = AddressText::fromText(trimmedText(m_address));
    if (!url || !isHttp(*url))
        return tr("Enter a valid HTTP or HTTPS M3U8 URL.");
    fields.url = *url;

    if (const auto logo = trimmedOrNothing(m_logoAddress)) {
        fields.logoURL = AddressText::fromText(*logo);
        if (!fields.logoURL)
            return tr("Enter a valid logo URL.");
    }
    fields.countryCode = trimmedOrNothing(m_countryCode.toUpper());
    fields.groupTitle = trimmedOrNothing(m_category);
    return fields;
}

void LocalM3UItemEditView::setLogoAddress(const QString &address)
{
    if (std::exchange(m_logoAddress, address) != address)
        Q_EMIT logoAddressChanged();
}

void LocalM3UItemEditView::setErrorMessage(const QString &message)
{
    if (std::exchange(m_errorMessage, message) != message)
        Q_EMIT errorMessageChanged();
}

} // namespace zeph

// The form in which a saved link is made or changed.
#pragma once

#include "sources/PlaylistEntry.h"

#include <QObject>
#include <QQmlEngine>

#include <functional>
#include <optional>
#include <variant>

namespace zeph {

class FilePanels;

/// What is typed into the sheet, and what becomes of it. One lives as long as its sheet is shown.
/// Main thread only.
class LocalM3UItemEditView : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Made for the entry to be edited.")

    Q_PROPERTY(QString title READ title CONSTANT)
    Q_PROPERTY(QString name MEMBER m_name NOTIFY nameChanged)
    Q_PROPERTY(QString address MEMBER m_address NOTIFY addressChanged)
    Q_PROPERTY(QString logoAddress MEMBER m_logoAddress NOTIFY logoAddressChanged)
    Q_PROPERTY(QString countryCode MEMBER m_countryCode NOTIFY countryCodeChanged)
    Q_PROPERTY(QString category MEMBER m_category NOTIFY categoryChanged)
    /// What is wrong with the form as it was last to be saved; empty when nothing was.
    Q_PROPERTY(QString errorMessage READ errorMessage NOTIFY errorMessageChanged)

public:
    /// Takes the cleaned values. The id is that of the edited entry, and null when adding.
    using Save = std::function<void(const PlaylistEntry::Fields &fields)>;

    /// Edits `entry`, or adds one when there is none. `panels` outlives the form.
    LocalM3UItemEditView(std::optional<PlaylistEntry> entry, FilePanels &panels, Save onSave,
        QObject *parent = nullptr);

    QString title() const;
    const QString &errorMessage() const { return m_errorMessage; }

    /// Hands over the values and closes the sheet, or tells what is wrong with them.
    Q_INVOKABLE void save();
    Q_INVOKABLE void cancel();
    /// Lets the user choose a picture, whose address becomes the logo's. The file stays where it
    /// is.
    Q_INVOKABLE void chooseLogoFile();
    Q_INVOKABLE void removeLogo();

Q_SIGNALS:
    void nameChanged();
    void addressChanged();
    void logoAddressChanged();
    void countryCodeChanged();
    void categoryChanged();
    void errorMessageChanged();
    /// The sheet is to close.
    void dismissed();

private:
    /// The cleaned values, or the first thing that is wrong with them, as text for the user.
    using Values = std::variant<PlaylistEntry::Fields, QString>;

    Values values() const;
    void setLogoAddress(const QString &address);
    void setErrorMessage(const QString &message);

    const std::optional<PlaylistEntry> m_entry;
    FilePanels &m_panels;
    const Save m_onSave;
    QString m_name;
    QString m_address;
    QString m_logoAddress;
    QString m_countryCode;
    QString m_category;
    QString m_errorMessage;
};

} // namespace zeph

// The sheet in which a saved link is made or changed.
import QtQuick
import QtQuick.Controls
import QtQuick.Layouts
import ZephPlayer.Library

Popup {
    id: sheet

    required property LocalM3UItemEditView form
    /// Loads the picture of the logo.
    property QtObject logos: null

    component Field: TextField {
        Layout.fillWidth: true
        selectByMouse: true
        maximumLength: 0x7fffffff
        // The keys lead to a text to replace it, the mouse to a place within it.
        onActiveFocusChanged: {
            if (!activeFocus)
                showBeginning();
            else if (focusReason === Qt.TabFocusReason || focusReason === Qt.BacktabFocusReason)
                selectAll();
        }
        onTextChanged: if (!activeFocus) showBeginning()

        // Which tells most of a long address.
        function showBeginning() {
            cursorPosition = 0;
        }

        Accessible.name: placeholderText
        ToolTip.text: placeholderText
        ToolTip.visible: hovered && !activeFocus
        ToolTip.delay: Qt.styleHints.mousePressAndHoldInterval
    }

    parent: Overlay.overlay
    // One that is made while the desktop is dark would be light.
    palette: parent.palette
    anchors.centerIn: parent
    width: Math.min(400, parent.width - 2 * margins)
    height: Math.min(implicitHeight, parent.height - 2 * margins)
    margins: 8
    padding: 20
    modal: true
    focus: true
    closePolicy: Popup.NoAutoClose

    onOpened: nameField.forceActiveFocus(Qt.TabFocusReason)

    background: Rectangle {
        radius: 8
        color: sheet.palette.window
        border.color: Qt.rgba(0.5, 0.5, 0.5, 0.5)
    }

    contentItem: Flickable {
        id: content

        implicitHeight: column.implicitHeight
        contentHeight: column.implicitHeight
        boundsBehavior: Flickable.StopAtBounds
        interactive: height < contentHeight
        clip: interactive

        ScrollBar.vertical: ScrollBar {
            parent: content.parent
            anchors.top: content.top
            anchors.bottom: content.bottom
            anchors.left: content.right
            anchors.leftMargin: 4
            policy: content.interactive ? ScrollBar.AlwaysOn : ScrollBar.AlwaysOff
        }

        // In a window that is too low the keys bring up what they go to.
        Window.onActiveFocusItemChanged: {
            const item = Window.activeFocusItem;
            if (!interactive || !item)
                return;
            const top = item.mapToItem(column, 0, 0).y;
            contentY = Math.min(top, Math.max(contentY, top + item.height - height));
        }

        // Not the key that is still held from opening the sheet.
        Keys.onReturnPressed: event => { if (!event.isAutoRepeat) sheet.form.save(); }
        Keys.onEnterPressed: event => { if (!event.isAutoRepeat) sheet.form.save(); }
        Keys.onEscapePressed: sheet.form.cancel()

        ColumnLayout {
            id: column

            width: parent.width
            spacing: 12

            // Not a Label, which would call itself static text.
            Text {
                Layout.fillWidth: true
                text: sheet.form.title
                textFormat: Text.PlainText
                color: palette.windowText
                font.pixelSize: Math.round(sheet.font.pixelSize * 15 / 13)
                font.weight: Font.DemiBold
                elide: Text.ElideRight

                Accessible.role: Accessible.Heading
                Accessible.name: text
            }

            Field {
                id: nameField
                placeholderText: qsTr("Channel or video name")
                text: sheet.form.name
                onTextChanged: sheet.form.name = text
            }
            Field {
                placeholderText: qsTr("M3U8 URL")
                text: sheet.form.address
                onTextChanged: sheet.form.address = text
                inputMethodHints: Qt.ImhUrlCharactersOnly | Qt.ImhNoPredictiveText
            }
            Field {
                placeholderText: qsTr("Logo URL (optional)")
                text: sheet.form.logoAddress
                onTextChanged: sheet.form.logoAddress = text
                inputMethodHints: Qt.ImhUrlCharactersOnly | Qt.ImhNoPredictiveText
            }
            Field {
                placeholderText: qsTr("Country code (for example: TR, US)")
                text: sheet.form.countryCode
                onTextChanged: sheet.form.countryCode = text
            }
            Field {
                placeholderText: qsTr("Category (optional)")
                text: sheet.form.category
                onTextChanged: sheet.form.category = text
            }

            RowLayout {
                spacing: 8

                SnifferSavedLogoView {
                    loader: sheet.logos
                    url: sheet.form.logoAddress
                    fallback: "tv"
                    delay: 450
                }
                TextButton {
                    id: chooseLogoButton
                    text: qsTr("Choose Logo File…")
                    help: qsTr("Choose a picture on this computer as the logo")
                    onClicked: sheet.form.chooseLogoFile()
                }
                TextButton {
                    text: qsTr("Remove Logo")
                    help: qsTr("Save the link without a logo")
                    visible: sheet.form.logoAddress.length > 0
                    onClicked: {
                        sheet.form.removeLogo();
                        chooseLogoButton.forceActiveFocus();
                    }
                }
            }

            // Not a Label, which would call itself static text.
            Text {
                Layout.fillWidth: true
                visible: text.length > 0
                text: sheet.form.errorMessage
                textFormat: Text.PlainText
                wrapMode: Text.Wrap
                font.pixelSize: Math.round(sheet.font.pixelSize * 0.85)
                color: WarningColor.on(sheet.palette.window)

                Accessible.role: Accessible.AlertMessage
                Accessible.name: text
            }

            RowLayout {
                Layout.alignment: Qt.AlignRight
                spacing: 8

                TextButton {
                    text: qsTr("Cancel")
                    help: qsTr("Close without saving")
                    onClicked: sheet.form.cancel()
                }
                TextButton {
                    text: qsTr("Save")
                    help: qsTr("Save the link")
                    // It stands out while Return means it.
                    highlighted: activeFocus || !(Window.activeFocusItem instanceof Button)
                    onClicked: sheet.form.save()
                }
            }
        }
    }

    Connections {
        target: sheet.form

        function onDismissed() {
            sheet.close();
        }
    }
}

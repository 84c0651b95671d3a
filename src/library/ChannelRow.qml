// A row of a list of channels: logo, name and what else is known, and its buttons.
import QtQuick
import QtQuick.Controls
import QtQuick.Layouts
import ZephPlayer.Library
import ZephPlayer.Surface

AbstractButton {
    id: row

    required property int index
    required property string name
    required property string metadata
    required property url logoUrl
    required property bool isCurrent
    required property string help
    required property QtObject logos
    default property alias buttons: buttonRow.data
    readonly property bool isHovered: hover.hovered

    implicitHeight: 42
    leftPadding: 5
    rightPadding: 3
    // The list has the focus, and leads it to its current row.
    focusPolicy: Qt.NoFocus

    Accessible.role: Accessible.ListItem
    Accessible.name: help
    Accessible.description: metadata
    Accessible.onPressAction: clicked()
    ToolTip.text: help
    ToolTip.visible: hovered && !down
    ToolTip.delay: Qt.styleHints.mousePressAndHoldInterval

    // Which is not left for one of the buttons.
    HoverHandler {
        id: hover
    }

    ListView.onPooled: logo.wanted = false
    ListView.onReused: logo.wanted = true

    background: Rectangle {
        id: plate
        radius: 6
        color: Qt.alpha(row.palette.windowText, 0.07)
        visible: false

        FocusRing {
            anchors.margins: 0
            visible: row.activeFocus
        }
    }

    contentItem: RowLayout {
        spacing: 7

        SavedTVLinkCompactLogo {
            id: logo
            loader: row.logos
            url: row.logoUrl
        }

        ColumnLayout {
            Layout.fillWidth: true
            spacing: 0

            Label {
                id: nameLabel
                Layout.fillWidth: true
                text: row.name
                textFormat: Text.PlainText
                font.pixelSize: 12
                maximumLineCount: 1
                elide: Text.ElideRight
                Accessible.ignored: true
            }
            Label {
                Layout.fillWidth: true
                visible: text.length > 0
                text: row.metadata
                textFormat: Text.PlainText
                font.pixelSize: 10
                opacity: 0.6
                maximumLineCount: 1
                elide: Text.ElideRight
                Accessible.ignored: true
            }
        }

        SystemImage {
            visible: row.isCurrent
            name: "speaker.wave.2.fill"
            pointSize: 11
            color: row.palette.highlight
        }

        RowLayout {
            id: buttonRow
            spacing: 0
        }
    }

    states: [
        State {
            name: "current"
            when: row.isCurrent
            PropertyChanges {
                plate.visible: true
                plate.color: Qt.alpha(row.palette.highlight, 0.16)
                nameLabel.font.weight: Font.DemiBold
            }
        },
        State {
            name: "pointedAt"
            when: row.isHovered || row.activeFocus
            PropertyChanges {
                plate.visible: true
            }
        }
    ]
}

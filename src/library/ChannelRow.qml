// A row of a list of channels: logo, name and what else is known, and its buttons.
import QtQuick
import QtQuick.Controls
import QtQuick.Layouts
import ZephPlayer.Library
import ZephPlayer.Surface

SidebarItem {
    id: row

    required property int index
    required property string name
    required property string metadata
    required property url logoUrl
    required property bool isCurrent
    /// The keys go to this row when they go to the list.
    required property bool isKeyRow
    required property QtObject logos
    default property alias buttons: buttonRow.data
    readonly property alias isHovered: row.hovered

    implicitHeight: 43

    Accessible.role: Accessible.ListItem
    Accessible.name: help
    Accessible.description: metadata

    RowLayout {
        anchors.fill: parent
        anchors.leftMargin: 5
        anchors.rightMargin: 3
        spacing: 7

        SavedTVLinkCompactLogo {
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
                horizontalAlignment: Text.AlignLeft
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
                horizontalAlignment: Text.AlignLeft
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

    states: State {
        name: "current"
        when: row.isCurrent
        PropertyChanges {
            row.plate.visible: true
            row.plate.color: Qt.alpha(row.palette.highlight, 0.16)
            nameLabel.font.weight: Font.DemiBold
        }
    }
}

// A row of a group with rounded corners.
import QtQuick
import QtQuick.Templates as T

T.ItemDelegate {
    id: control
    property bool checkedRow: false
    property bool first: false
    property bool last: false
    property bool selectable: true

    activeFocusOnTab: false  // the list keeps the focus and moves the current row
    focusPolicy: Qt.NoFocus
    Accessible.role: Accessible.ListItem
    Accessible.name: text
    Accessible.description: checkedRow ? profile.text("CHOSEN") : ""
    Accessible.selected: checkedRow
    Accessible.onPressAction: control.clicked()

    background: Item {
        clip: true
        // Rounded only at the first and last row of the group.
        Rectangle {
            anchors.fill: parent
            anchors.topMargin: control.first ? 0 : -Theme.radius
            anchors.bottomMargin: control.last ? 0 : -Theme.radius
            radius: Theme.radius
            color: control.down ? Theme.pressed : Theme.group
        }
        Rectangle {
            anchors { left: parent.left; right: parent.right; bottom: parent.bottom }
            anchors.leftMargin: 44
            height: 1
            visible: !control.last
            color: Theme.line
        }
        Rectangle {
            anchors.fill: parent
            anchors.margins: 2
            radius: Theme.radius - 2
            color: "transparent"
            border.width: control.highlighted ? 2 : 0
            border.color: Theme.tint
        }
    }
    contentItem: Item {
        Text {
            id: mark
            anchors { left: parent.left; verticalCenter: parent.verticalCenter }
            width: 44
            horizontalAlignment: Text.AlignHCenter
            text: "✓"
            visible: control.checkedRow
            font.pixelSize: 20
            font.weight: Font.Bold
            color: Theme.tint
        }
        Text {
            anchors { left: parent.left; right: parent.right; leftMargin: 44; rightMargin: 16 }
            anchors.verticalCenter: parent.verticalCenter
            text: control.text
            textFormat: Text.PlainText
            font.pixelSize: 17
            color: control.selectable || control.checkedRow ? Theme.text : Theme.disabledText
            elide: Text.ElideRight
            maximumLineCount: 1
            wrapMode: Text.NoWrap
            horizontalAlignment: Text.AlignLeft
        }
    }
}

// A finding of the report. A tap shows the measured values, the advice and the explanation.
import QtQuick
import QtQuick.Templates as T

T.ItemDelegate {
    id: control
    property int mark: 2
    property string values
    property string advice
    property string explanation
    property bool open: false

    implicitHeight: column.implicitHeight + 20
    focusPolicy: Qt.NoFocus
    Accessible.role: Accessible.Button
    Accessible.name: Theme.markSigns[mark] + " " + text
    Accessible.description: [values, advice, open ? explanation : ""].filter(s => s !== "").join(". ")
    Accessible.onPressAction: control.clicked()

    background: Rectangle {
        color: control.down ? Theme.pressed : Theme.group
        Rectangle {
            anchors.fill: parent
            anchors.margins: 2
            color: "transparent"
            radius: 6
            border.width: control.highlighted ? 2 : 0
            border.color: Theme.tint
        }
        Rectangle {
            anchors { left: parent.left; right: parent.right; bottom: parent.bottom; leftMargin: 44 }
            height: 1
            color: Theme.line
        }
    }
    contentItem: Item {
        Text {
            id: sign
            width: 44
            y: 10
            horizontalAlignment: Text.AlignHCenter
            text: Theme.markSigns[control.mark]
            font.pixelSize: 17
            font.weight: Font.Bold
            color: Theme.markColors[control.mark]
        }
        Column {
            id: column
            y: 10
            anchors { left: parent.left; right: parent.right; leftMargin: 44; rightMargin: 36 }
            spacing: 4
            Text {
                width: parent.width
                text: control.text
                textFormat: Text.PlainText
                font.pixelSize: 16
                wrapMode: Text.Wrap
                color: Theme.text
            }
            Text {
                width: parent.width
                visible: text !== ""
                text: control.advice === "" ? "" : "→ " + control.advice
                textFormat: Text.PlainText
                font.pixelSize: 15
                wrapMode: Text.Wrap
                color: Theme.quietText
            }
            Text {
                width: parent.width
                visible: control.open && text !== ""
                text: control.values
                textFormat: Text.PlainText
                font.pixelSize: 15
                wrapMode: Text.Wrap
                color: Theme.text
            }
            Text {
                width: parent.width
                visible: control.open && text !== ""
                text: control.explanation
                textFormat: Text.PlainText
                font.pixelSize: 15
                wrapMode: Text.Wrap
                color: Theme.quietText
            }
        }
        Text {
            anchors { right: parent.right; rightMargin: 14 }
            y: 10
            visible: control.values !== "" || control.explanation !== ""
            text: control.open ? "▴" : "▾"
            font.pixelSize: 15
            color: Theme.disabledText
        }
    }
}

// A button without a frame, or with a filled background.
import QtQuick
import QtQuick.Templates as T

T.Button {
    id: control
    property bool filled: false
    property color color: Theme.tint
    property int fontSize: 17

    implicitWidth: Math.max(44, label.implicitWidth + 24)
    implicitHeight: 44
    activeFocusOnTab: true
    focusPolicy: Qt.StrongFocus
    Accessible.name: text
    Accessible.onPressAction: control.clicked()
    Keys.onReturnPressed: if (enabled) control.clicked()
    Keys.onEnterPressed: if (enabled) control.clicked()

    contentItem: Text {
        id: label
        text: control.text
        textFormat: Text.PlainText
        font.pixelSize: control.fontSize
        font.weight: control.filled ? Font.DemiBold : Font.Medium
        color: !control.enabled ? Theme.disabledText : control.filled ? Theme.tintText : control.color
        horizontalAlignment: Text.AlignHCenter
        verticalAlignment: Text.AlignVCenter
        elide: Text.ElideRight
    }
    background: Rectangle {
        radius: 10
        color: control.filled && control.enabled ? control.color : control.down ? Theme.pressed : "transparent"
        opacity: control.filled && control.down ? 0.75 : 1
        border.width: control.visualFocus ? 2 : 0
        border.color: control.filled ? Theme.text : Theme.tint
    }
}

// The bar at the top. Its background extends to the window's edge.
import QtQuick

Rectangle {
    id: bar
    property string buttonTitle: ""
    property bool buttonEnabled: true
    property rect frame: Qt.rect(0, 20, width, 44)
    property alias title: title.text
    signal buttonClicked

    width: parent.width
    height: frame.y + frame.height
    color: Theme.bar

    Text {
        id: title
        // Centred in the bar or, if it does not fit there, in the space beside the button.
        readonly property real side: button.visible ? button.width + 12 : 16
        anchors { left: parent.left; right: parent.right; rightMargin: side }
        anchors.leftMargin: implicitWidth <= bar.width - 2 * side ? side : 16
        y: bar.frame.y
        height: bar.frame.height
        textFormat: Text.PlainText
        font.pixelSize: 17
        font.weight: Font.DemiBold
        color: Theme.text
        horizontalAlignment: Text.AlignHCenter
        verticalAlignment: Text.AlignVCenter
        elide: Text.ElideRight
        fontSizeMode: Text.HorizontalFit
        minimumPixelSize: 13
        Accessible.role: Accessible.Heading
        Accessible.name: text
    }
    FlatButton {
        id: button
        objectName: "barButton"
        anchors { right: parent.right; rightMargin: 8 }
        y: bar.frame.y + (bar.frame.height - height) / 2
        visible: bar.buttonTitle !== ""
        text: bar.buttonTitle
        enabled: bar.buttonEnabled
        onClicked: bar.buttonClicked()
    }
    Rectangle {
        anchors { left: parent.left; right: parent.right; bottom: parent.bottom }
        height: 1
        color: Theme.line
    }
}

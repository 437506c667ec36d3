// The header of a group. The toolkit determines the frames of label and spinner.
import QtQuick

Item {
    id: header
    property string text
    property rect labelFrame
    property rect spinnerFrame
    property bool spinning
    property string status: ""
    property bool refreshable: false
    signal refreshClicked
    readonly property bool mirrored: profile.rightToLeft

    Text {
        id: label
        x: header.mirrored ? header.width - header.labelFrame.x - width : header.labelFrame.x
        y: header.labelFrame.y
        height: header.labelFrame.height
        text: header.text
        textFormat: Text.PlainText
        font.pixelSize: 13
        color: Theme.quietText
        verticalAlignment: Text.AlignVCenter
        Accessible.role: Accessible.Heading
        Accessible.name: text
    }
    // The spinner is beside the label as measured by the toolkit, or further away if the font is
    // wider.
    Wheel {
        id: wheel
        readonly property real gap: header.spinnerFrame.x - header.labelFrame.x - header.labelFrame.width
        x: header.mirrored ? label.x - gap - width
                           : Math.max(header.spinnerFrame.x, label.x + label.width + gap)
        y: header.spinnerFrame.y
        width: header.spinnerFrame.width
        height: header.spinnerFrame.height
        turning: header.spinning
    }
    Text {
        anchors { verticalCenter: label.verticalCenter }
        x: header.mirrored ? header.labelFrame.x : header.width - header.labelFrame.x - width
        width: Math.max(0, header.mirrored ? wheel.x - 8 - x
                                           : header.width - header.labelFrame.x - wheel.x - wheel.width - 8)
        visible: header.spinning && implicitWidth <= width  // the spinner shows it, too
        text: header.status
        textFormat: Text.PlainText
        font.pixelSize: 13
        color: Theme.quietText
        horizontalAlignment: Text.AlignRight
        elide: Text.ElideRight
        Accessible.role: Accessible.StaticText
        Accessible.name: text
    }
    FlatButton {
        objectName: "refreshButton"
        visible: header.refreshable
        x: header.mirrored ? header.labelFrame.x - 12 : header.width - header.labelFrame.x + 12 - width
        anchors.verticalCenter: label.verticalCenter
        height: 32
        fontSize: 13
        text: profile.text("KEY_REFRESH")
        onClicked: header.refreshClicked()
    }
}

// The progress of the tests. The constraints determine the frames of label and bar.
import QtQuick

Item {
    id: page

    Text {
        objectName: "progressText"
        x: profile.progressTextFrame.x
        y: profile.progressTextFrame.y
        width: profile.progressTextFrame.width
        height: profile.progressTextFrame.height
        text: profile.progressText
        textFormat: Text.PlainText
        font.pixelSize: profile.progressTextSize
        // With a font that is wider than the toolkit assumes, the text grows by a line at the top.
        wrapMode: Text.Wrap
        maximumLineCount: profile.progressTextLines
        horizontalAlignment: Text.AlignHCenter
        verticalAlignment: Text.AlignBottom
        color: Theme.text
        Accessible.role: Accessible.StaticText
        Accessible.name: text
    }
    Rectangle {
        id: bar
        objectName: "progressBar"
        readonly property real value: profile.progress
        readonly property string name: profile.progressText
        readonly property string description: profile.testRunning
        x: profile.progressBarFrame.x
        y: profile.progressBarFrame.y
        width: profile.progressBarFrame.width
        height: profile.progressBarFrame.height
        color: Theme.track
        Accessible.role: Accessible.ProgressBar
        Accessible.name: name
        Rectangle {
            x: profile.rightToLeft ? parent.width - width : 0
            height: parent.height
            width: parent.width * bar.value
            color: Theme.tint
        }
    }
    Column {
        anchors.horizontalCenter: parent.horizontalCenter
        y: bar.y + bar.height + 20
        width: Math.min(parent.width - 40, 480)
        spacing: 8
        Text {
            objectName: "testsDone"
            width: parent.width
            text: profile.stopping ? profile.text("STOPPING") : profile.testsDone
            textFormat: Text.PlainText
            font.pixelSize: 15
            color: Theme.text
            horizontalAlignment: Text.AlignHCenter
            wrapMode: Text.Wrap
            Accessible.role: Accessible.AlertMessage
            Accessible.name: text
        }
        Text {
            width: parent.width
            visible: !profile.stopping
            text: profile.testRunning
            textFormat: Text.PlainText
            font.pixelSize: 15
            color: Theme.quietText
            horizontalAlignment: Text.AlignHCenter
            wrapMode: Text.Wrap
        }
        FlatButton {
            objectName: "stopButton"
            anchors.horizontalCenter: parent.horizontalCenter
            visible: !profile.stopping
            text: profile.text("STOP")
            color: Theme.danger
            onClicked: profile.askToClose()
        }
    }
}

// The window: one page below a navigation bar, dialogs over it.
import QtQuick
import QtQuick.Controls.Basic

ApplicationWindow {
    id: window
    minimumWidth: 240
    minimumHeight: 320
    title: profile.title !== "" ? profile.title : "Wi-Fi profile"
    color: Theme.background
    contentOrientation: Qt.PortraitOrientation
    onClosing: (close) => { close.accepted = false; profile.askToClose() }

    FocusScope {
        id: root
        anchors.fill: parent
        focus: true
        LayoutMirroring.enabled: profile.rightToLeft
        LayoutMirroring.childrenInherit: true

        // Shown at the start, before there is a page.
        Column {
            anchors.centerIn: parent
            spacing: 16
            visible: profile.page === "starting"
            Wheel {
                width: 28; height: 28
                turning: parent.visible
                anchors.horizontalCenter: parent.horizontalCenter
            }
            Text {
                text: profile.text("STARTING")
                color: Theme.quietText
                font.pixelSize: 15
            }
        }
        Loader {
            id: page
            objectName: "page"
            anchors.fill: parent
            focus: true
            source: ({picker: "PickerPage.qml", progress: "ProgressPage.qml", report: "ReportPage.qml"})[profile.page] || ""
            onLoaded: item.forceActiveFocus()
        }
        NavigationBar {
            objectName: "bar"
            visible: profile.page !== "starting"
            frame: profile.barFrame
            title: profile.page === "report" ? profile.text("REPORT") : profile.title
            buttonTitle: profile.page === "report" ? profile.text("CLOSE") : profile.nextTitle
            buttonEnabled: profile.page === "report" || profile.nextEnabled
            onButtonClicked: profile.page === "report" ? profile.askToClose() : profile.tapNext()
        }
        // Says why an action is not possible now.
        Rectangle {
            id: notice
            objectName: "notice"
            property alias text: noticeText.text
            anchors { horizontalCenter: parent.horizontalCenter; bottom: parent.bottom; bottomMargin: 32 }
            width: Math.min(parent.width - 32, noticeText.implicitWidth + 32)
            height: noticeText.height + 20
            radius: Theme.radius
            color: Theme.text
            opacity: noticeTimer.running ? 1 : 0
            visible: opacity > 0
            Behavior on opacity { NumberAnimation { duration: Theme.animation } }
            Text {
                id: noticeText
                anchors.centerIn: parent
                width: parent.width - 32
                wrapMode: Text.Wrap
                horizontalAlignment: Text.AlignHCenter
                textFormat: Text.PlainText
                font.pixelSize: 15
                color: Theme.background
                Accessible.role: Accessible.AlertMessage
                Accessible.name: text
            }
            Timer { id: noticeTimer; interval: 3000 }
            Connections {
                target: profile
                function onNoticed(text) { notice.text = text; noticeTimer.restart() }
            }
        }
    }
    AlertDialog { objectName: "alert" }
    QuestionDialog {
        objectName: "stopQuestion"
        message: profile.text("STOP_QUESTION")
        actions: [{"title": profile.text("GO_ON"), "cancels": true}, {"title": profile.text("STOP"), "cancels": false}]
        enabledActions: [true, true]
        visible: profile.asksToStop
        onActionClicked: (action) => profile.answerStop(action === 1)
        onCancelled: profile.answerStop(false)
    }
    Shortcut { sequences: [StandardKey.Refresh, "Ctrl+R"]; onActivated: profile.refresh() }
    Shortcut { sequences: ["Ctrl+Return", "Alt+Right"]; onActivated: if (profile.page === "picker") profile.tapNext() }
    Shortcut { sequences: [StandardKey.Quit, StandardKey.Close]; onActivated: profile.askToClose() }
    Shortcut { sequence: "Escape"; enabled: profile.page === "report"; onActivated: profile.askToClose() }
}

// The list of networks.
import QtQuick
import QtQuick.Controls.Basic

FocusScope {
    id: page

    Rectangle { anchors.fill: parent; color: Theme.listBackground }

    ListView {
        id: list
        objectName: "networkList"
        // Pull distance that starts a refresh.
        readonly property real pullToRefresh: 64
        readonly property real pulled: Math.max(0, -verticalOvershoot)
        property bool armed: false
        property bool byKey: false  // keys move the current row, so it is highlighted

        anchors.fill: parent
        focus: true
        activeFocusOnTab: true
        topMargin: profile.topInset + (profile.refreshing ? refresh.height : 0)
        bottomMargin: 24
        model: profile.rows
        reuseItems: true
        cacheBuffer: 400
        boundsBehavior: Flickable.DragOverBounds
        keyNavigationEnabled: false
        highlightFollowsCurrentItem: false
        currentIndex: -1
        Accessible.role: Accessible.List
        Accessible.name: profile.title

        onDragStarted: armed = false
        onPulledChanged: if (dragging) armed = pulled > pullToRefresh && profile.canRefresh
        onDragEnded: if (armed) { armed = false; profile.refresh() }

        // The changes of a batch are animated together.
        add: Transition { NumberAnimation { property: "opacity"; from: 0; to: 1; duration: Theme.animation } }
        remove: Transition { NumberAnimation { property: "opacity"; to: 0; duration: Theme.animation } }
        displaced: Transition {
            NumberAnimation { property: "y"; duration: Theme.animation; easing.type: Easing.OutCubic }
            NumberAnimation { property: "opacity"; to: 1; duration: Theme.animation }
        }
        Behavior on topMargin { NumberAnimation { duration: Theme.animation; easing.type: Easing.OutCubic } }
        ScrollBar.vertical: ScrollBar { topPadding: profile.topInset }

        delegate: Item {
            id: entry
            required property int index
            required property int kind
            required property int section
            required property int row
            required property real entryHeight
            required property string text
            required property bool checked
            required property bool interactive
            required property bool first
            required property bool last
            required property bool spinning
            required property rect labelFrame
            required property rect spinnerFrame
            width: list.width
            height: entryHeight

            Loader {
                anchors.fill: parent
                active: entry.kind === 0
                sourceComponent: SectionHeader {
                    text: entry.text
                    labelFrame: entry.labelFrame
                    spinnerFrame: entry.spinnerFrame
                    spinning: entry.spinning
                    status: profile.listStatus
                    // Only the groups of networks to choose from.
                    refreshable: entry.section > 0 && profile.canRefresh
                    onRefreshClicked: profile.refresh()
                }
            }
            NetworkRow {
                objectName: entry.kind === 1 ? "row" + entry.section + "." + entry.row : ""
                visible: entry.kind === 1
                x: profile.sideInset
                width: entry.width - 2 * profile.sideInset
                height: entry.height
                text: entry.text
                checkedRow: entry.checked
                first: entry.first
                last: entry.last
                enabled: entry.interactive
                selectable: profile.selectable
                highlighted: list.byKey && entry.activeFocus && list.currentIndex === entry.index
                onClicked: {
                    list.byKey = false
                    list.currentIndex = entry.index
                    profile.tapRow(entry.index)
                }
            }
        }
        footer: Item {
            width: list.width
            visible: profile.listIsEmpty && profile.listStatus !== ""
            height: visible ? statusParts.height + 48 : 0
            Column {
                id: statusParts
                anchors.centerIn: parent
                width: parent.width - 2 * profile.sideInset
                spacing: 8
                Text {
                    objectName: "listStatus"
                    width: parent.width
                    horizontalAlignment: Text.AlignHCenter
                    wrapMode: Text.Wrap
                    text: profile.listStatus
                    textFormat: Text.PlainText
                    font.pixelSize: 15
                    color: Theme.quietText
                    Accessible.role: Accessible.AlertMessage
                    Accessible.name: text
                }
                Text {
                    objectName: "listReason"
                    width: parent.width
                    visible: text !== ""
                    horizontalAlignment: Text.AlignHCenter
                    wrapMode: Text.Wrap
                    text: profile.listReason
                    textFormat: Text.PlainText
                    font.pixelSize: 13
                    color: Theme.quietText
                    Accessible.role: Accessible.StaticText
                    Accessible.name: text
                }
                FlatButton {
                    objectName: "powerButton"
                    anchors.horizontalCenter: parent.horizontalCenter
                    visible: profile.canAskForPower
                    text: profile.text("TURN_ON")
                    onClicked: profile.askForPower()
                }
            }
        }

        // --- Keyboard: moves between rows that can be tapped.
        // Scrolls only as far as needed to show the row below the bar.
        function reveal(index) {
            positionViewAtIndex(index, ListView.Contain)
            const entry = itemAtIndex(index)
            if (entry && entry.y < contentY + topMargin) contentY = entry.y - topMargin
        }
        function move(from, by) {
            for (let i = from; i >= 0 && i < count; i += by) {
                if (!profile.rows.isEnabledRow(i)) continue
                currentIndex = i
                byKey = true
                reveal(i)
                if (activeFocus && currentItem) currentItem.forceActiveFocus()
                return
            }
        }
        function pageRows() { return Math.max(1, Math.floor((height - topMargin) / 44) - 1) }
        // Highlights the row only if a key moved the focus here: not at the start, and not when a
        // dialog returns the focus.
        property bool hadFocus: false
        property bool lentFocus: false
        onActiveFocusChanged: {
            if (!activeFocus) {
                lentFocus = profile.alertMessage !== "" || profile.asksToStop
                return
            }
            const shows = lentFocus ? byKey : hadFocus
            hadFocus = true
            if (!profile.rows.isEnabledRow(currentIndex)) move(0, 1)
            byKey = shows
        }
        Keys.onDownPressed: move(currentIndex + 1, 1)
        Keys.onUpPressed: move(currentIndex - 1, -1)
        Keys.onPressed: (event) => {
            event.accepted = true
            switch (event.key) {
            case Qt.Key_PageDown: move(Math.min(count - 1, currentIndex + pageRows()), currentIndex + pageRows() >= count ? -1 : 1); break
            case Qt.Key_PageUp: move(Math.max(0, currentIndex - pageRows()), currentIndex <= pageRows() ? 1 : -1); break
            case Qt.Key_Home: move(0, 1); break
            case Qt.Key_End: move(count - 1, -1); break
            case Qt.Key_Return: case Qt.Key_Enter: case Qt.Key_Space:
                profile.tapRow(currentIndex)
                break
            default: event.accepted = false
            }
        }
        Connections {
            target: profile
            function onScrolledTo(index) { list.reveal(index) }
        }
    }

    // The refresh indicator above the first group.
    Item {
        id: refresh
        width: parent.width
        height: 56
        y: profile.topInset + Math.min(0, list.pulled - height)
        visible: profile.refreshing || (list.dragging && list.pulled > 8 && (profile.canRefresh || list.armed))
        Row {
            anchors.centerIn: parent
            spacing: 10
            Wheel {
                width: 20; height: 20
                turning: profile.refreshing
                anchors.verticalCenter: parent.verticalCenter
            }
            Text {
                text: profile.refreshing ? profile.text("SCANNING")
                                        : profile.text(list.armed ? "RELEASE_TO_REFRESH" : "PULL_TO_REFRESH")
                textFormat: Text.PlainText
                font.pixelSize: 15
                color: Theme.quietText
                anchors.verticalCenter: parent.verticalCenter
                Accessible.role: Accessible.AlertMessage
                Accessible.name: text
            }
        }
        states: State {
            when: profile.refreshing
            PropertyChanges { target: refresh; y: profile.topInset }
        }
    }
}

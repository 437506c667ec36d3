// The report: sections with their counts, and findings that can be opened.
import QtQuick
import QtQuick.Controls.Basic

FocusScope {
    id: page
    property int topInset: 64

    // The report is in English, whatever the language of the screens.
    LayoutMirroring.enabled: false
    LayoutMirroring.childrenInherit: true

    Rectangle { anchors.fill: parent; color: Theme.listBackground }

    ListView {
        id: list
        objectName: "reportList"
        readonly property real side: Math.max(0, (width - 720) / 2)
        property var open: ({})  // keyed by index
        property bool byKey: false

        anchors.fill: parent
        focus: true
        activeFocusOnTab: true
        topMargin: page.topInset
        bottomMargin: 24
        model: profile.report
        cacheBuffer: 1000
        keyNavigationEnabled: false
        highlightFollowsCurrentItem: false
        currentIndex: -1
        boundsBehavior: Flickable.StopAtBounds
        Accessible.role: Accessible.List
        Accessible.name: profile.text("REPORT")
        ScrollBar.vertical: ScrollBar { topPadding: page.topInset }

        function toggle(index) {
            const all = Object.assign({}, open)
            all[index] = !all[index]
            open = all
        }
        // Scrolls only as far as needed to show the finding below the bar.
        function reveal(index) {
            positionViewAtIndex(index, ListView.Contain)
            const entry = itemAtIndex(index)
            if (entry && entry.y < contentY + topMargin) contentY = entry.y - topMargin
        }
        function move(from, by) {
            for (let i = from; i >= 0 && i < count; i += by) {
                if (model[i].kind !== "finding") continue
                currentIndex = i
                byKey = true
                reveal(i)
                if (activeFocus && currentItem) currentItem.forceActiveFocus()
                return
            }
            if (by < 0) positionViewAtBeginning()
        }
        onActiveFocusChanged: if (activeFocus && currentIndex < 0) { move(0, 1); byKey = false }
        Keys.onDownPressed: move(currentIndex + 1, 1)
        Keys.onUpPressed: move(currentIndex - 1, -1)
        Keys.onPressed: (event) => {
            event.accepted = true
            switch (event.key) {
            case Qt.Key_PageDown: move(Math.min(count - 1, currentIndex + 8), currentIndex + 8 >= count ? -1 : 1); break
            case Qt.Key_PageUp: move(Math.max(0, currentIndex - 8), currentIndex <= 8 ? 1 : -1); break
            case Qt.Key_Home: move(0, 1); break
            case Qt.Key_End: move(count - 1, -1); break
            case Qt.Key_Return: case Qt.Key_Enter: case Qt.Key_Space: toggle(currentIndex); break
            default: event.accepted = false
            }
        }

        header: Text {
            objectName: "summary"
            x: list.side + 16
            width: list.width - 2 * x
            topPadding: 20
            bottomPadding: 4
            text: profile.summary
            textFormat: Text.PlainText
            font.pixelSize: 20
            font.weight: Font.DemiBold
            wrapMode: Text.Wrap
            color: Theme.text
            Accessible.role: Accessible.Heading
            Accessible.name: text
        }
        delegate: Item {
            id: entry
            required property int index
            required property var modelData
            width: list.width
            height: modelData.kind === "section" ? heading.height : finding.implicitHeight

            Column {
                id: heading
                visible: entry.modelData.kind === "section"
                x: list.side + 16
                width: list.width - 2 * x
                topPadding: 22
                bottomPadding: 8
                spacing: 4
                Text {
                    width: parent.width
                    text: entry.modelData.text
                    textFormat: Text.PlainText
                    font.pixelSize: 17
                    font.weight: Font.DemiBold
                    elide: Text.ElideRight
                    color: Theme.text
                    Accessible.role: Accessible.Heading
                    Accessible.name: text
                }
                Row {
                    spacing: 14
                    Repeater {
                        model: entry.modelData.counts || []
                        Text {
                            required property var modelData
                            text: Theme.markSigns[modelData.mark] + " " + modelData.count
                            font.pixelSize: 15
                            font.weight: Font.DemiBold
                            color: Theme.markColors[modelData.mark]
                            Accessible.role: Accessible.StaticText
                            Accessible.name: text
                        }
                    }
                }
                Text {
                    width: parent.width
                    visible: text !== ""
                    text: entry.modelData.note || ""
                    textFormat: Text.PlainText
                    font.pixelSize: 15
                    wrapMode: Text.Wrap
                    color: Theme.quietText
                    Accessible.role: Accessible.StaticText
                    Accessible.name: text
                }
            }
            ReportFinding {
                id: finding
                objectName: "finding" + entry.index
                visible: entry.modelData.kind === "finding"
                x: list.side
                width: list.width - 2 * list.side
                height: implicitHeight
                text: entry.modelData.text
                mark: visible ? entry.modelData.mark : 2
                values: entry.modelData.values || ""
                advice: entry.modelData.advice || ""
                explanation: entry.modelData.explanation || ""
                open: list.open[entry.index] === true
                highlighted: list.byKey && entry.activeFocus && list.currentIndex === entry.index
                onClicked: { list.byKey = false; list.currentIndex = entry.index; list.toggle(entry.index) }
            }
        }
    }
}

// A question over the screen: a message, an optional text field, and buttons. It is in the upper
// half while an on-screen keyboard covers the lower one.
import QtQuick
import QtQuick.Controls.Basic
import QtQuick.Templates as T

Popup {
    id: dialog
    property string message
    property bool hasField: false
    property string placeholder: ""
    property var actions: []          // {"title", "cancels"}
    property var enabledActions: []   // one per action
    property alias typed: field.text
    signal actionClicked(int action)
    signal cancelled
    signal edited(string text)

    readonly property real keyboardTop: Qt.inputMethod.visible && Qt.inputMethod.keyboardRectangle.height > 0
        ? Qt.inputMethod.keyboardRectangle.y : parent.height
    parent: T.Overlay.overlay
    x: (parent.width - width) / 2
    y: Math.max(8, (keyboardTop - implicitHeight) / 2)
    width: Math.min(parent.width - 32, 340)
    modal: true
    focus: true
    closePolicy: Popup.NoAutoClose
    padding: 20
    T.Overlay.modal: Rectangle { color: Theme.scrim }
    background: Rectangle {
        radius: Theme.radius + 2
        color: Theme.group
        border.width: Theme.dark ? 1 : 0
        border.color: Theme.line
    }
    // For screen readers, the popup's own item is the dialog.
    Component.onCompleted: {
        const frame = contentItem.parent
        frame.Accessible.role = Accessible.Dialog
        frame.Accessible.name = Qt.binding(() => dialog.message)
    }
    onOpened: hasField ? field.forceActiveFocus() : buttons.itemAt(buttons.count - 1).forceActiveFocus()

    // Two short buttons are side by side, other buttons are stacked.
    readonly property bool sideBySide: {
        if (actions.length !== 2) return false
        for (let i = 0; i < buttons.count; ++i) {
            const button = buttons.itemAt(i)
            if (button && button.implicitWidth > (width - 2 * padding - 12) / 2) return false
        }
        return true
    }

    contentItem: FocusScope {
        implicitHeight: column.implicitHeight
        focus: true
        LayoutMirroring.enabled: profile.rightToLeft
        LayoutMirroring.childrenInherit: true
        Keys.onEscapePressed: dialog.cancelled()

        Column {
            id: column
            width: parent.width
            spacing: 16
            Text {
                objectName: "alertMessage"
                width: parent.width
                text: dialog.message
                textFormat: Text.PlainText
                font.pixelSize: 17
                color: Theme.text
                wrapMode: Text.Wrap
                horizontalAlignment: Text.AlignHCenter
                Accessible.role: Accessible.AlertMessage
                Accessible.name: text
            }
            TextField {
                id: field
                objectName: "alertField"
                width: parent.width
                visible: dialog.hasField
                placeholderText: dialog.placeholder
                placeholderTextColor: Theme.disabledText
                color: Theme.text
                font.pixelSize: 17
                inputMethodHints: Qt.ImhNoPredictiveText | Qt.ImhNoAutoUppercase
                Accessible.name: dialog.message
                Accessible.description: dialog.placeholder
                background: Rectangle {
                    radius: 8
                    color: Theme.background
                    border.width: field.activeFocus ? 2 : 1
                    border.color: field.activeFocus ? Theme.tint : Theme.line
                }
                onTextEdited: dialog.edited(text)
                // Performs the last enabled action that does not cancel.
                onAccepted: {
                    for (let i = dialog.actions.length - 1; i >= 0; --i) {
                        if (dialog.actions[i].cancels || !dialog.enabledActions[i]) continue
                        dialog.actionClicked(i)
                        return
                    }
                }
            }
            Grid {
                width: parent.width
                columns: dialog.sideBySide ? 2 : 1
                columnSpacing: 12
                rowSpacing: 8
                Repeater {
                    id: buttons
                    model: dialog.actions
                    FlatButton {
                        required property int index
                        required property var modelData
                        objectName: "alertButton" + index
                        width: dialog.sideBySide ? (column.width - 12) / 2 : column.width
                        text: modelData.title
                        filled: !modelData.cancels && index === dialog.actions.length - 1
                        enabled: dialog.enabledActions[index] === true
                        onClicked: dialog.actionClicked(index)
                        KeyNavigation.left: index > 0 ? buttons.itemAt(index - 1) : null
                        KeyNavigation.right: index + 1 < buttons.count ? buttons.itemAt(index + 1) : null
                    }
                }
            }
        }
    }
}

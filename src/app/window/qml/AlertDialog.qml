// The toolkit's alert.
import QtQuick

QuestionDialog {
    message: profile.alertMessage
    hasField: profile.alertHasField
    placeholder: profile.alertPlaceholder
    actions: profile.alertActions
    enabledActions: profile.alertEnabled
    visible: profile.alertMessage !== ""
    onAboutToShow: typed = ""
    onEdited: (text) => profile.type(text)
    onActionClicked: (action) => profile.tapAction(action)
    onCancelled: profile.cancelAlert()
}

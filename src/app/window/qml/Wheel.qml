// A spinner that shows activity.
import QtQuick

Item {
    id: wheel
    property bool turning: false
    property color color: Theme.quietText
    visible: turning

    Repeater {
        model: 8
        Rectangle {
            required property int index
            width: Math.max(2, wheel.width * 0.13)
            height: wheel.height * 0.3
            radius: width / 2
            color: wheel.color
            opacity: (index + 1) / 8
            x: (wheel.width - width) / 2
            transform: Rotation {
                origin.x: wheel.width * 0 + Math.max(2, wheel.width * 0.13) / 2
                origin.y: wheel.height / 2
                angle: index * 45
            }
        }
    }
    RotationAnimator on rotation {
        running: wheel.turning && wheel.visible
        from: 0; to: 360
        duration: 900
        loops: Animation.Infinite
    }
}

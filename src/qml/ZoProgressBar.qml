import QtQuick.Shapes 1.14
import QtQuick 2.14

// A thin bar from 0 to 100. `value` itself moves smoothly to what it is set to, so a handler
// of its changes sees the values between.
Item {
    id: root

    property real value: 0
    property int precision: 0
    property int valueAnimationInterval: 400

    height: track.height

    Accessible.role: Accessible.ProgressBar
    Accessible.name: Math.round(value) + " %"

    Behavior on value {
        NumberAnimation {
            duration: root.valueAnimationInterval
            easing.type: Easing.OutQuart
        }
    }

    Rectangle {
        id: track
        objectName: "progressTrack"
        width: parent.width
        height: 4
        radius: 2
        color: "#EBEEF2"
    }

    Rectangle {
        objectName: "progressFill"
        width: root.value * track.width / 100
        height: track.height
        radius: track.radius
        // Public.accentColor, repeated: this file must not import public.js
        // (tests/rules/test_rules.py).
        color: "#1F6FFF"
    }
}

import QtQuick 2.14
import QtQuick.Controls 1.4

// What the push buttons have in common: Return and Enter click as Space does, and assistive tools
// cannot press a disabled one.
Button {
    function activate(event) {
        if (!event.isAutoRepeat) {
            clicked()
        }
    }

    // Replaces the action of Qt Quick Controls, which ignores `enabled`.
    function accessiblePressAction() {
        if (enabled) {
            clicked()
        }
    }

    Keys.onReturnPressed: activate(event)
    Keys.onEnterPressed: activate(event)
}

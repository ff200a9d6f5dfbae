import QtQuick 2.14
import QtQuick.Controls 1.4

// What the push buttons and the image button have in common.
Button {
    // Replaces the action of Qt Quick Controls, which ignores `enabled`. Deferred, because the
    // assistive tool waits for the action to end, and a message box would wait for the tool.
    function accessiblePressAction() {
        if (enabled) {
            Qt.callLater(accessibleClick)
        }
    }

    function accessibleClick() {
        if (enabled) {
            clicked()
        }
    }
}

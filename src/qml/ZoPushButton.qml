import QtQuick 2.14
import QtQuick.Controls 1.4

// What the push buttons and the image button have in common.
Button {
    // Replaces the action of Qt Quick Controls, which ignores `enabled`.
    function accessiblePressAction() {
        if (enabled) {
            clicked()
        }
    }
}

import QtQuick 2.14

// A main window with what other programs of the family have: it blurs what lies behind it, and
// wants to know about its pop-ups.
Stage {
    property real blur: 8
    property var notified: null

    function notifyPopup(popup, shown) {
        notified = popup
        fake.note("notifyPopup " + (popup.titleHeight !== undefined) + " " + shown)
    }
}

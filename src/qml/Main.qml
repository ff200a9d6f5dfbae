import QtQuick 2.14
import QtQuick.Window 2.14
import QtQuick.Controls 2.5
import QtQuick.Layouts 1.15
import "."

// The one window: a frameless card with a drawn title bar and, where the system draws shadows, a
// shadow of its own round it. Closing through the interface sets an exit code first; closing by the
// system sets none, hence no onClosing.
ApplicationWindow {
    id: window

    property var burOffset: uninstallMgr.showWindowShadow() ? 15 : 0
    property var exitCode: -2
    readonly property int pageHome: 0

    function titleClose(code) {
        uninstallMgr.setExitCode(code)
        close()
    }

    flags: Qt.Window | Qt.FramelessWindowHint | Qt.WindowMinMaxButtonsHint
    color: "#00000000"
    visible: true
    width: 640 + 2 * burOffset
    height: 408 + 2 * burOffset
    // Fixed: with Qt.WindowMinMaxButtonsHint a window manager could resize the window.
    minimumWidth: 640 + 2 * burOffset
    maximumWidth: 640 + 2 * burOffset
    minimumHeight: 408 + 2 * burOffset
    maximumHeight: 408 + 2 * burOffset

    Rectangle {
        id: bgRect
        objectName: "card"

        width: window.width - 2 * window.burOffset
        height: window.height - 2 * window.burOffset
        anchors.centerIn: parent
        radius: window.burOffset
    }

    BorderImage {
        objectName: "windowShadow"
        anchors.fill: bgRect
        anchors.margins: -window.burOffset
        border.left: window.burOffset
        border.top: window.burOffset
        border.right: window.burOffset
        border.bottom: window.burOffset
        horizontalTileMode: BorderImage.Stretch
        verticalTileMode: BorderImage.Stretch
        // Do not decode the image if no shadow is drawn.
        source: visible ? "qrc:/pic_shadow.png" : ""
        visible: window.burOffset > 0
    }

    Image {
        id: bgImage
        objectName: "backgroundImage"

        anchors.left: bgRect.left
        anchors.top: bgRect.top
        source: "qrc:/home_bg.png"
    }

    WinTitle {
        id: wintitle
        objectName: "titleBar"

        anchors.left: bgRect.left
        anchors.top: bgRect.top
        anchors.right: bgRect.right
        onClosed: window.titleClose(window.exitCode)
    }

    StackLayout {
        objectName: "pageStack"
        anchors.left: bgRect.left
        anchors.leftMargin: 32
        anchors.right: bgRect.right
        anchors.rightMargin: 32
        anchors.top: wintitle.bottom
        anchors.topMargin: 8
        anchors.bottom: bgRect.bottom
        currentIndex: window.pageHome

        HomePage {
            id: hPage
            objectName: "homePage"

            onUninstalling: wintitle.closeBtnDisable(running)
        }
    }
}

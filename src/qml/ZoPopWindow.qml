import QtQuick 2.12
import QtQuick.Window 2.14
import "."
import QtQuick.Layouts 1.14
import "public.js" as Public

// A frameless, application-modal window with a title bar, a body and a row of push buttons. It is
// used once: closing it, in whatever way, destroys it.
Window {
    id: popupwin

    enum BUTTONMASK { NONEBUTTON, CLOSEBUTTON, MAXBUTTON }

    property Component content: null
    property var buttons: []
    property int defaultIndex: 0
    property int leftMargin: 32
    property int rightMargin: 32
    property int topMargin: 24
    property alias contentColor: background.color
    property int btnWidth: 100
    property int btnHeight: 28
    property alias states: background.states
    property alias state: background.state
    property int titleHeight: 32
    property color bgColor: "#f8f9fa"
    property color titleColor: "#e9ebf0"
    property bool haveBorder: true
    property bool centerInParent: false
    property bool showParentMask: true
    property int buttonMask: ZoPopWindow.CLOSEBUTTON
    property bool busy: false
    property alias radius: background.radius
    property alias titleRightMargin: titleBar.closeRightMargin

    // For ZoMessageBox, which must not import public.js (tests/rules/test_rules.py).
    readonly property color textColor: Public.winTextColor
    readonly property int borderw: haveBorder ? Public.winBorderWidth : 0

    signal buttonClicked(int index)
    signal closeClicked()

    function open() {
        visible = true
    }

    function close() {
        destroy()
    }

    // Rebuilds the button row from a list of texts. The old buttons stay children of the row until
    // the event loop runs again, so hide them first and remember the last new button.
    function setButtons(list) {
        for (var old = row.children.length - 1; old > 0; --old) {
            row.children[old].visible = false
            row.children[old].destroy()
        }
        var button = null
        for (var i = 0; i < list.length; ++i) {
            button = (i === defaultIndex ? defaultButton : plainButton).createObject(row, {
                index: i, text: list[i], height: btnHeight, implicitWidth: btnWidth
            })
            button.Layout.preferredWidth = button.width
            button.Layout.preferredHeight = button.height
            button.Layout.alignment = Qt.AlignRight
        }
        if (button !== null) {
            button.Layout.rightMargin = rightMargin
        }
        row.visible = list.length > 0
    }

    // Called for keys that no child accepted; ZoMessageBox overrides it.
    function keyPressed(event) {
    }

    function mainWindow() {
        return typeof window === "undefined" ? null : window
    }

    function tellMainWindow(shown) {
        var main = mainWindow()
        if (main && typeof main.notifyPopup === "function") {
            main.notifyPopup(popupwin, shown)
        }
    }

    width: 600
    height: 240
    // Owned by the main window, so that the window manager never puts that one above.
    transientParent: mainWindow()
    modality: Qt.ApplicationModal
    flags: Qt.FramelessWindowHint | Qt.Window
    color: "#00000000"

    onButtonsChanged: setButtons(buttons)
    onVisibleChanged: {
        var main = mainWindow()
        if (visible && !centerInParent && main) {
            x = main.x + (main.width - width) / 2
            y = main.y + (main.height - height) / 2
        }
        if (visible) {
            // Without activation no key reaches the program: the pop-up blocks the main window.
            // Deferred, because the native window does not exist yet.
            Qt.callLater(requestActivate)
        }
        tellMainWindow(visible)
    }
    // Qt only hides the window here. Destroying it ends ZoMessageBox's wait. `popupwin.` is needed:
    // `close` is the event here.
    onClosing: popupwin.close()
    Component.onDestruction: tellMainWindow(false)

    Component {
        id: defaultButton
        ZoDefaultRoundButton {
            property int index: 0
            objectName: "button" + index
            onClicked: popupwin.buttonClicked(index)
        }
    }

    Component {
        id: plainButton
        ZoRoundButton {
            property int index: 0
            objectName: "button" + index
            onClicked: popupwin.buttonClicked(index)
        }
    }

    Rectangle {
        id: background
        objectName: "popupBackground"
        anchors.fill: parent
        radius: popupwin.mainWindow() && popupwin.mainWindow().blur > 0 ? Public.winRadius : 0
        color: popupwin.bgColor
        border.width: popupwin.borderw
        border.color: Public.winBorderColor
        focus: true

        Accessible.role: Accessible.Dialog
        Accessible.name: popupwin.title
        Keys.onPressed: popupwin.keyPressed(event)

        ZoPopTitle {
            id: titleBar
            objectName: "popupTitleBar"
            anchors {
                left: parent.left
                top: parent.top
                right: parent.right
                margins: popupwin.borderw
            }
            height: popupwin.titleHeight - popupwin.borderw
            radius: background.radius
            color: popupwin.titleColor
            popup: popupwin
            title: popupwin.title
            closable: (popupwin.buttonMask & ZoPopWindow.CLOSEBUTTON) !== 0
            busy: popupwin.busy
            onClosed: {
                popupwin.closeClicked()
                popupwin.close()
            }
        }

        Loader {
            objectName: "popupBody"
            anchors {
                left: parent.left
                leftMargin: popupwin.leftMargin
                top: titleBar.bottom
                topMargin: popupwin.topMargin
                right: parent.right
                rightMargin: popupwin.rightMargin
                bottom: parent.bottom
                bottomMargin: row.height + popupwin.borderw
            }
            sourceComponent: popupwin.content
            onLoaded: {
                if (item.color !== undefined) {
                    item.color = background.color
                }
            }
        }

        RowLayout {
            id: row
            objectName: "buttonRow"
            anchors {
                left: parent.left
                right: parent.right
                bottom: parent.bottom
                bottomMargin: 20
            }
            spacing: 16
            visible: false

            Item {
                Layout.fillWidth: true
            }
        }
    }
}

import QtQuick 2.14
import QtQuick.Window 2.14
import QtQuick.Controls 2.5
import QtGraphicalEffects 1.0
import QtQuick.Shapes 1.15
import "public.js" as Public
import "."

// The only page of the window: the question, and the uninstallation with its progress.
Item {
    id: home

    property var listTitleTxt: [
        qsTr("Please tell us why you want to uninstall Dravik:")
    ]

    signal uninstalling(var running)

    clip: true

    Label {
        id: titleLabel

        anchors.left: parent.left
        anchors.top: parent.top
        anchors.right: parent.right
        height: 48
        text: home.listTitleTxt[0]
        color: "#090A0A"
        font.pixelSize: 18
        font.weight: Font.DemiBold
        wrapMode: Text.WordWrap
    }

    Item {
        id: frameRect

        anchors.left: parent.left
        anchors.right: parent.right
        anchors.top: titleLabel.bottom
        anchors.topMargin: 30
        anchors.bottom: uninstallLabel.top
        anchors.bottomMargin: 5
    }

    Text {
        id: uninstallLabel

        anchors.left: parent.left
        anchors.right: parent.right
        anchors.bottom: progressBar.top
        anchors.bottomMargin: 4
        text: qsTr("Unistalling\u2026")
        font.pixelSize: 14
        color: "#090A0A"
        visible: false
    }

    ZoProgressBar {
        id: progressBar

        anchors.left: parent.left
        anchors.right: parent.right
        anchors.bottom: btnRect.top
        anchors.bottomMargin: 14
        value: uninstallMgr.valProgress
        visible: false
        // The animated value: complete is what the user has seen the bar reach.
        onValueChanged: {
            if (value >= 100) {
                uninstallLabel.color = "#10A91D"
                uninstallLabel.text = qsTr("Unistall complete!")
                progressBar.visible = false
                btnUninstall.visible = false
                btnCancel.enabled = true
                btnCancel.text = qsTr("OK")
                home.uninstalling(false)
            }
        }
    }

    Rectangle {
        id: btnRect

        anchors.left: parent.left
        anchors.right: parent.right
        anchors.bottom: parent.bottom
        anchors.bottomMargin: 24
        height: 28

        ZoRoundButton {
            id: btnUninstall

            anchors.top: btnCancel.top
            anchors.right: btnCancel.left
            anchors.rightMargin: 20
            text: qsTr("Uninstall")
            enabled: progressBar.value === 0 || progressBar.value === 100
            onClicked: {
                Public.sendUserInfoEx("UninstallPop", "Click_Uninstall")
                if (uninstallMgr.isKTRRunning()) {
                    Public.showMessageBox({
                        "title": qsTr("Warning"),
                        "mainTitle": qsTr("Uninstall has detected that Torvan Dravik is currently running."),
                        "subTitle": qsTr("Please close all instances and try again."),
                        "buttons": [qsTr("OK")]
                    }, window)
                    return
                }
                uninstallLabel.visible = true
                progressBar.visible = true
                btnCancel.enabled = false
                btnUninstall.enabled = false
                home.uninstalling(true)
                uninstallMgr.doUninstall()
                window.exitCode = 0
            }
        }

        ZoDefaultRoundButton {
            id: btnCancel

            anchors.right: parent.right
            anchors.verticalCenter: parent.verticalCenter
            text: qsTr("Cancel")
            onClicked: window.titleClose(window.exitCode === 0 ? 0 : -1)
        }
    }
}

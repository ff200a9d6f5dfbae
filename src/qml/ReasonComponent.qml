import QtQuick.Controls 2.14
import QtQuick 2.14
import "public.js" as Public

// The reasons for an uninstallation. Choosing one reports it and leaves this page for good.
FocusScope {
    id: root

    // A reason's number, from 1 on, is also the number of the page that answers it.
    property var listReson: [
        "",
        //: Reason to choose from a list: the product costs too much. One line, left of an image:
        //: about 55 letters.
        qsTr("The price is too expensive"),
        //: Reason to choose from a list: the product is needed no longer. One line, left of an
        //: image: about 55 letters.
        qsTr("The product has solved my problem"),
        //: Reason to choose from a list: the product does not help. One line, left of an image:
        //: about 55 letters.
        qsTr("The product doesn't solve my problem"),
        //: Reason to choose from a list, always the last one. One line, left of an image: about
        //: 55 letters.
        qsTr("I have other reasons")
    ]
    // The same reasons in usage events, always English.
    readonly property var answers: [
        "",
        "The price is too expensive",
        "The product has solved my problem",
        "The product doesn't solve my problem",
        "I have other reasons"
    ]

    ButtonGroup {
        id: reasonGroup
    }

    // Drawn below the Column: a long reason overlaps the image.
    Image {
        objectName: "reasonImage"
        anchors.right: parent.right
        anchors.rightMargin: 48
        y: Math.round((frameRect.height - height) / 2)
        source: "qrc:/pic_question.png"
        Accessible.ignored: true
    }

    Column {
        objectName: "reasonColumn"
        anchors.fill: parent
        spacing: 10

        Repeater {
            objectName: "reasonList"
            model: uninstallMgr.getReasonList()

            ZoRadioButton {
                objectName: "reason" + modelData
                height: 19
                text: root.listReson[modelData]
                ButtonGroup.group: reasonGroup
                onToggled: {
                    Public.sendUserInfoEx("UninstallPop", "Result_Question_Why_Unistall",
                                          { "answer": root.answers[modelData] })
                    home.switchPage(modelData)
                }
            }
        }
    }
}

import QtQuick 2.14

// Each control, and what the program shows beside them: the same images, decoded alike.
Controls {
    Image {
        source: "qrc:/home_bg.png"
    }

    Image {
        source: "qrc:/pic_question.png"
    }

    Image {
        source: "qrc:/pic_gift.png"
        visible: false
    }

    Image {
        source: "qrc:/ico_popup_close_normal.png"
    }
}

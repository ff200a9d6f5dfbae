import QtQuick 2.14
import QtTest 1.15

// The progress bar: how its value moves, and that its fill shows it. The reference images show what
// it looks like.
InterfaceTest {
    id: test

    property var bar: null

    name: "ZoProgressBar"

    function prepare() {
        bar = createTemporaryObject(Qt.createComponent("qrc:/ZoProgressBar.qml"), test,
                                    { width: 300 })
    }

    function test_theValuePassesThroughNumbersBetween() {
        var seen = []
        var fill = findChild(bar, "progressFill")
        bar.valueChanged.connect(() => {
            seen.push(bar.value)
            fuzzyCompare(fill.width, bar.value * 3, 0.0001)
        })
        bar.value = 100
        // Do not wait for the value: tryCompare accepts 100 - 0.00001, where the width is still
        // 0.00003 below 300.
        tryCompare(fill, "width", 300)
        verify(seen.length > 3, seen)
        verify(seen[0] > 0 && seen[0] < 100, seen)
        compare(seen, seen.slice().sort((one, other) => one - other))
        bar.width = 200
        compare([fill.width, findChild(bar, "progressTrack").width], [200, 200])
    }

    function test_animation() {
        var behaviors = probe.below(bar, "QQuickBehavior")
        compare(behaviors.length, 1, "the fill's width is not animated once more")
        bar.value = 1 // the animation exists from the first change on
        compareAll(behaviors[0].animation, { duration: 400 })
        compare(behaviors[0].animation.easing.type, Easing.OutQuart)
        bar.valueAnimationInterval = 70
        compare(behaviors[0].animation.duration, 70)
    }

    function test_accessible() {
        bar.value = 40
        tryCompare(bar, "value", 40)
        var seen = probe.accessible(bar)
        compare([seen.role, seen.name], [Accessible.ProgressBar, "40 %"])
    }
}

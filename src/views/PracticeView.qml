import QtQuick
import QtQuick.Templates as T
import Hmatnik

// The quiz: a task, the area that takes the answer, and the verdict.
ScrollingScreen {
    id: root

    required property AppModel model
    readonly property real columnWidth: Math.min(620, width - 44)
    // Takes the answers.
    readonly property alias field: capture

    contentHeight: content.height + 44

    PracticeRound {
        id: round

        model: root.model
        onRequested: capture.takeFocus()
    }

    Column {
        id: content

        y: 22
        width: root.width
        spacing: 22

        Item {
            anchors.horizontalCenter: parent.horizontalCenter
            width: root.columnWidth
            height: Math.round(15 * Theme.textScale)

            PlainText {
                anchors.verticalCenter: parent.verticalCenter
                text: round.taskText
                font: Theme.captionBold
            }
            IconLabel {
                anchors.right: parent.right
                anchors.verticalCenter: parent.verticalCenter
                symbol: "trophy.fill"
                text: round.scoreText
                font: Theme.captionBold
                color: Theme.yellowText
            }
        }

        T.ProgressBar {
            id: progress

            anchors.horizontalCenter: parent.horizontalCenter
            width: root.columnWidth
            implicitHeight: 6
            to: round.taskCount
            value: round.completedTasks
            Accessible.name: round.taskText

            background: Rectangle {
                radius: 3
                color: Theme.quaternaryFill
                Accessible.ignored: true
            }
            contentItem: Item {
                Rectangle {
                    width: progress.visualPosition * parent.width
                    height: parent.height
                    radius: 3
                    color: Theme.accent
                    Accessible.ignored: true

                    Behavior on width {
                        enabled: !Theme.reducedMotion
                        NumberAnimation {
                            duration: 150
                            easing.type: Easing.OutCubic
                        }
                    }
                }
            }
        }

        GlassSurface {
            id: card

            anchors.horizontalCenter: parent.horizontalCenter
            width: 500
            height: task.height + 60

            Column {
                id: task

                x: 30
                y: 30
                width: 440
                spacing: 20

                Symbol {
                    width: parent.width
                    name: "keyboard.badge.ellipsis"
                    size: 38
                    color: Theme.blueSymbol
                }
                PlainText {
                    width: parent.width
                    height: Math.max(24, implicitHeight)
                    text: round.title
                    font: Theme.title2Bold
                    horizontalAlignment: Text.AlignHCenter
                    verticalAlignment: Text.AlignVCenter
                    wrapMode: Text.Wrap
                    Accessible.role: Accessible.Heading
                }
                PlainText {
                    width: parent.width
                    text: "Stiskněte odpovídající kombinaci kláves"
                    horizontalAlignment: Text.AlignHCenter
                    wrapMode: Text.Wrap
                }

                KeyCapture {
                    id: capture

                    readonly property bool empty: round.capturedCaptions.length === 0

                    width: 440
                    height: 72
                    model: root.model
                    companion: nextButton
                    allKeysNamed: round.areAllKeysNamed
                    asked: round.keys
                    Accessible.role: Accessible.HotkeyField
                    Accessible.name: empty ? placeholder.text : round.capturedText
                    Accessible.description: (empty ? "" : round.spokenCaptured + ". ") + "Pole přijímá každou kombinaci kláves, i ty systémové. Opustíte je kliknutím jinam nebo dvojím krátkým stiskem samotného modifikátoru, třeba Shiftu."
                    Accessible.focusable: true
                    Accessible.focused: activeFocus
                    onKeysPressed: tokens => round.check(tokens)

                    Rectangle {
                        anchors.fill: parent
                        radius: 12
                        color: Theme.well
                        Accessible.ignored: true
                    }
                    PlainText {
                        id: placeholder

                        anchors.centerIn: parent
                        visible: capture.empty
                        text: "Klikněte sem a stiskněte zkratku"
                        color: Theme.textTertiary
                        Accessible.ignored: true
                    }
                    KeyCaps {
                        anchors.centerIn: parent
                        visible: !capture.empty
                        keys: round.capturedCaptions
                    }
                    FocusRing {
                        radius: 14
                        visible: capture.activeFocus
                        opacity: Theme.highContrast ? 1 : 0.5
                    }
                }

                Announcer {
                    text: round.verdict === PracticeRound.Wrong ? round.verdictText + " " + round.spokenKeys : round.verdictText
                    source: verdict
                }
                IconLabel {
                    id: verdict

                    readonly property bool correct: round.verdict === PracticeRound.Correct

                    anchors.horizontalCenter: parent.horizontalCenter
                    visible: round.verdict !== PracticeRound.Unanswered
                    height: Math.round(17 * Theme.textScale)
                    spacing: 7
                    symbol: correct ? "checkmark.circle.fill" : "xmark.circle.fill"
                    symbolSize: 17
                    text: round.verdictText
                    ignored: true
                    Accessible.role: Accessible.AlertMessage
                    Accessible.name: text
                    font: Theme.headline
                    color: correct ? Theme.greenText : Theme.redText
                }
                KeyCaps {
                    anchors.horizontalCenter: parent.horizontalCenter
                    visible: round.verdict === PracticeRound.Wrong
                    keys: round.keyCaptions
                    Accessible.ignored: false
                    Accessible.role: Accessible.StaticText
                    Accessible.name: round.spokenKeys
                }
                ProminentButton {
                    id: nextButton

                    anchors.horizontalCenter: parent.horizontalCenter
                    visible: round.verdict !== PracticeRound.Unanswered
                    text: round.nextText
                    // Large texts can have it below the window's edge.
                    onActiveFocusChanged: {
                        if (activeFocus && root.interactive)
                            root.contentY = root.contentHeight - root.height;
                    }
                    onClicked: {
                        // With the keyboard on the button, its disappearing would leave it nowhere.
                        if (activeFocus)
                            capture.forceActiveFocus(Qt.TabFocusReason);
                        round.next();
                    }
                }
            }
        }

        // The field takes Tab and Return too, so nobody would find the way out.
        PlainText {
            anchors.horizontalCenter: parent.horizontalCenter
            width: root.columnWidth
            text: nextButton.visible ? "Dál bez myši: dvakrát krátce stiskněte samotný Shift, potom Enter." : "Ven z pole bez myši: dvakrát krátce stiskněte samotný Shift."
            font: Theme.caption
            color: Theme.textSecondary
            horizontalAlignment: Text.AlignHCenter
            wrapMode: Text.Wrap
        }
    }
}

pragma Singleton
import QtQuick

/*
    Every colour, size, radius, duration and font of the interface. Nothing else may hold a literal of these.
    `dark`, `reducedMotion` and `textScale` are set by the window from what the desktop says.
*/
QtObject {
    id: theme

    property bool dark: false
    property bool reducedMotion: false
    property real textScale: 1

    // Surfaces, from the back to the front.
    readonly property color background: dark ? "#1B1917" : "#FBFAF8"
    readonly property color sidebar: dark ? "#232120" : "#F3F1ED"
    readonly property color card: dark ? "#2A2725" : "#FFFFFF"
    readonly property color line: dark ? "#3A3633" : "#E6E2DB"
    readonly property color hover: dark ? "#34302D" : "#EAE6DF"
    readonly property color pressed: dark ? "#403B37" : "#DED8CE"
    readonly property color selection: dark ? "#3B3633" : "#E7E1D8"
    readonly property color notice: dark ? "#3A2620" : "#F6E8E4"
    readonly property color lit: dark ? "#4A2E24" : "#FBE3DA"
    readonly property color dim: dark ? "#A6000000" : "#59281E14"
    readonly property color shadow: dark ? "#59000000" : "#12281E14"

    // Words and marks.
    readonly property color text: dark ? "#F2EEE9" : "#211D19"
    readonly property color secondary: dark ? "#A79F96" : "#675F56"
    readonly property color accent: dark ? "#FF7A5C" : "#C2391F"
    readonly property color accentHover: dark ? "#FF8D73" : "#AE311A"
    readonly property color accentPressed: dark ? "#FFA18B" : "#992A15"
    readonly property color inkOnAccent: dark ? "#2A0F08" : "#FFFFFF"
    readonly property color destructive: dark ? "#FF8296" : "#A8102B"
    readonly property color destructiveHover: dark ? "#FF97A8" : "#930C24"
    readonly property color inkOnDestructive: dark ? "#33040D" : "#FFFFFF"

    // What lies on a photo or on a recipe's own colours is the same in both schemes.
    readonly property color photoWhite: "#FFFFFF"
    readonly property color photoInk: "#211D19"
    readonly property color photoFaint: "#99FFFFFF"
    readonly property color photoPill: "#33FFFFFF"
    readonly property color photoPillHover: "#4DFFFFFF"
    readonly property color photoPillPressed: "#5CFFFFFF"
    readonly property color photoRound: "#8C1E1814"
    readonly property color photoRoundHover: "#B31E1814"
    readonly property color cardMark: "#59000000"

    // Cook mode: a veil over the washed-out photo, and what lies on the veil.
    readonly property color cookVeilTop: dark ? "#8C151210" : "#E0FBFAF8"
    readonly property color cookVeilBottom: dark ? "#F0151210" : "#F5FBFAF8"
    readonly property color cookPanel: dark ? "#14FFFFFF" : "#99FFFFFF"
    readonly property color cookLine: dark ? "#1FFFFFFF" : "#1F211D19"
    readonly property color cookRound: dark ? "#2EFFFFFF" : "#17211D19"
    readonly property color cookRoundHover: dark ? "#47FFFFFF" : "#26211D19"
    readonly property real cookDimmed: dark ? 0.5 : 0.62

    // Space, on a grid of four.
    readonly property int gap1: 4
    readonly property int gap2: 8
    readonly property int gap3: 12
    readonly property int gap4: 16
    readonly property int gap5: 20
    readonly property int gap6: 24
    readonly property int gap7: 28
    readonly property int gap8: 32
    readonly property int gap10: 40
    readonly property int gap12: 48

    readonly property int radiusSmall: 6
    readonly property int radiusControl: 8
    readonly property int radiusCard: 14
    readonly property int radiusSheet: 20

    readonly property int controlHeight: Math.round(36 * textScale)
    readonly property int rowHeight: Math.round(42 * textScale)
    readonly property int symbolSize: Math.round(20 * textScale)
    readonly property int symbolSmall: Math.round(16 * textScale)
    readonly property int symbolLarge: Math.round(56 * textScale)
    readonly property int hairline: 1
    readonly property int ringWidth: 2
    readonly property int ringGap: 2

    // Widths that the layout turns on.
    readonly property int sidebarMinimum: 180
    readonly property int sidebarIdeal: Math.round(200 * Math.min(textScale, 1.25))
    readonly property int sidebarFolded: 60
    readonly property int sidebarFoldsBelow: 720
    readonly property int contentMaximum: 1400
    readonly property int cardMinimum: 170
    readonly property int cardMaximum: 260
    readonly property int cardColumnGap: 20
    readonly property int cardRowGap: 24
    readonly property int headerHeight: Math.round(330 * Math.min(textScale, 1.4))
    readonly property int sheetWidth: Math.round(680 * Math.min(textScale, 1.25))
    readonly property int sheetNarrow: Math.round(480 * Math.min(textScale, 1.25))
    readonly property int cookSheetWidth: Math.round(420 * Math.min(textScale, 1.25))
    readonly property int stepperSize: 60
    readonly property int capsuleHeight: Math.round(52 * textScale)
    readonly property int capsuleMaximum: Math.round(340 * textScale)
    readonly property int alertWidth: Math.round(380 * Math.min(textScale, 1.25))

    // Motion: ease-out, and none of it where the system asks for none.
    readonly property int quick: reducedMotion ? 0 : 150
    readonly property int calm: reducedMotion ? 0 : 220
    readonly property int glow: reducedMotion ? 0 : 900
    readonly property int turn: 900
    readonly property int patience: 300

    // Type.
    readonly property string family: "Inter"
    readonly property int sizeLargeTitle: Math.round(28 * textScale)
    readonly property int sizeHero: Math.round(34 * textScale)
    readonly property int sizeTitle: Math.round(22 * textScale)
    readonly property int sizeBrand: Math.round(17 * textScale)
    readonly property int sizeHeadline: Math.round(15 * textScale)
    readonly property int sizeBody: Math.round(15 * textScale)
    readonly property int sizeControl: Math.round(14 * textScale)
    readonly property int sizeSecondary: Math.round(13 * textScale)
    readonly property int sizeCaption: Math.round(12 * textScale)
    readonly property int sizeCookCurrent: Math.round(48 * textScale)
    readonly property int sizeCookOther: Math.round(32 * textScale)
    readonly property real leading: 1.45
    readonly property real leadingTight: 1.2

    readonly property font largeTitle: Qt.font({family: family, pixelSize: sizeLargeTitle, weight: Font.DemiBold, letterSpacing: -0.4})
    readonly property font hero: Qt.font({family: family, pixelSize: sizeHero, weight: Font.DemiBold, letterSpacing: -0.6})
    readonly property font title: Qt.font({family: family, pixelSize: sizeTitle, weight: Font.DemiBold, letterSpacing: -0.3})
    readonly property font brand: Qt.font({family: family, pixelSize: sizeBrand, weight: Font.DemiBold, letterSpacing: -0.2})
    readonly property font headline: Qt.font({family: family, pixelSize: sizeHeadline, weight: Font.DemiBold})
    readonly property font body: Qt.font({family: family, pixelSize: sizeBody})
    readonly property font control: Qt.font({family: family, pixelSize: sizeControl, weight: Font.Medium})
    readonly property font controlStrong: Qt.font({family: family, pixelSize: sizeControl, weight: Font.DemiBold})
    readonly property font input: Qt.font({family: family, pixelSize: sizeControl})
    readonly property font secondaryText: Qt.font({family: family, pixelSize: sizeSecondary})
    readonly property font secondaryStrong: Qt.font({family: family, pixelSize: sizeSecondary, weight: Font.DemiBold})
    readonly property font caption: Qt.font({family: family, pixelSize: sizeCaption})
    readonly property font stepLabel: Qt.font({family: family, pixelSize: sizeCaption, weight: Font.DemiBold, letterSpacing: 1.2})
}

import QtQuick
import Ovrin

PlainText {
    font: Theme.stepLabel
    color: Theme.secondary
    Accessible.role: Accessible.Heading
}

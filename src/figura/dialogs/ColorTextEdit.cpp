#include <figura/dialogs/ColorTextEdit.h>

#include <figura/dialogs/GuiHelper.h>

#include <QColorDialog>
#include <QDialogButtonBox>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QToolButton>
#include <QVBoxLayout>

namespace {

const int ColorIconSide = 20;

} // namespace

ColorTextEdit::ColorTextEdit(const QString &title, const QString &text, const QString &colorName,
                             QWidget *parent)
    : QDialog(parent)
{
    setWindowTitle(title);

    lineEdit = new QLineEdit(text, this);
    lineEdit->setMinimumWidth(250);

    colorButton = new QToolButton(this);
    colorButton->setIconSize(QSize(ColorIconSide, ColorIconSide));
    colorButton->setIcon(GuiHelper::colorIcon(ColorIconSide, GuiHelper::colorFromText(colorName)));
    colorButton->setText(colorName);
    colorButton->setAutoRaise(true);
    colorButton->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    connect(colorButton, &QToolButton::clicked, this, &ColorTextEdit::getColor);

    auto *grid = new QGridLayout;
    grid->setSpacing(12);
    grid->addWidget(new QLabel(tr("Enter new text"), this), 0, 0);
    grid->addWidget(new QLabel(tr("Color"), this), 0, 1);
    grid->addWidget(lineEdit, 1, 0);
    grid->addWidget(colorButton, 1, 1);

    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);

    auto *layout = new QVBoxLayout(this);
    layout->setSpacing(18);
    layout->addLayout(grid);
    layout->addWidget(buttons);
}

QString ColorTextEdit::text() const
{
    return lineEdit->text();
}

QString ColorTextEdit::namedColor() const
{
    return colorButton->text();
}

void ColorTextEdit::getColor()
{
    const QColor chosen =
        QColorDialog::getColor(GuiHelper::colorFromText(colorButton->text()), this, QString());
    if (!chosen.isValid())
        return;
    colorButton->setIcon(GuiHelper::colorIcon(ColorIconSide, chosen));
    colorButton->setText(chosen.name());
}

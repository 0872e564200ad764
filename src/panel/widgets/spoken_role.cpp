#include "panel/widgets/spoken_role.h"

#include <QAccessible>
#include <QAccessibleWidget>

#include "panel/widgets/surface.h"

namespace {

QAccessibleInterface* PictureOf(const QString& /*className*/, QObject* object) {
    auto* const surface = dynamic_cast<Surface*>(object);
    if (surface != nullptr) return new QAccessibleWidget(surface, QAccessible::Graphic);
    auto* const plain = qobject_cast<QWidget*>(object);
    const bool isWindow =
        plain != nullptr && plain->isWindow() && plain->metaObject() == &QWidget::staticMetaObject;
    return isWindow ? new QAccessibleWidget(plain, QAccessible::Window) : nullptr;
}

}  // namespace

void SpeakOfSurfacesAsPictures() {
    QAccessible::installFactory(PictureOf);
}

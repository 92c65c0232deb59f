#include "ModelAndView.h"

#include "BrandMark.h"
#include "DateText.h"
#include "QtColor.h"
#include "TintwellView.h"

#include <QApplication>
#include <QIcon>
#include <QPixmap>

namespace tintwell {

ModelAndView makeModelAndView(DesktopServices& services)
{
    // No window is made before its content.
    QApplication::setWindowIcon(QPixmap::fromImage(BrandMark::windowIcon()));
    ModelAndView content;
    content.model = std::make_unique<TintwellModel>(seedColor,
        PalettePersistence(PalettePersistence::defaultURL()), services.makeSampler(),
        services.forModel());
    content.libraryWatch = std::make_unique<platform::FileWatch>(
        content.model->libraryFile(), [&model = *content.model] { model.followLibrary(); });
    content.view = new TintwellView(*content.model,
        { .openColorPanel =
                [&services, &model = *content.model] {
                    services.colorPanel().orderFront(toQColor(model.generated().source),
                        [&model](const QColor& color) { model.use(fromQColor(color)); });
                },
            .quit = [] { QApplication::quit(); },
            .dateText = platform::DateText(platform::DateText::userLocale()) });
    return content;
}

} // namespace tintwell

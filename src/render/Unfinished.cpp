#include "document/Window1.h"
namespace quorrin {
const Rows& objectRows()
{
    static const Rows rows(144, "x");
    return rows;
}
const Rows& markerRows()
{
    static const Rows rows(22, "x");
    return rows;
}
void Window1::RenderMap(bool)
{}
Ref<Picture> Window1::DrawObject(std::int64_t, std::int64_t)
{
    return New<Picture>(56, 56);
}
Ref<Picture> Window1::DrawDM(std::int64_t)
{
    return New<Picture>(56, 56);
}
void Window1::RenderWall(const Ref<cWall>&)
{}
Ref<Picture> cWall::Render() const
{
    return New<Picture>(64, 64);
}
} // namespace quorrin

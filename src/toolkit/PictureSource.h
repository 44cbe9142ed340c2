#pragma once

// What pictures are made of. For the toolkit's own .cpp files.

#include "toolkit/Painting.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace quorrin {

/// Where the pixels of a picture come from. It never changes once somebody else holds it, so a step that draws a
/// picture keeps showing what the picture was when it was drawn.
class PictureSource {
public:
    virtual ~PictureSource() = default;

    /// In units.
    QSize size() const { return size_; }

    /// All of the picture with `scale` pixels a unit, or with the pixels that there are. Null when it has no area.
    /// The picture at scale 1 is the one that files hold.
    virtual QImage at(int scale) const = 0;

    /// The same with all the pixels that there are, though fewer may be kept for the screen.
    virtual QImage allPixels(int scale) const { return at(scale); }

    /// The scale to ask for, so that masking at it and reducing the result gives `scale` without fringes.
    virtual int scaleToMaskAt(int scale) const { return scale; }

    /// Carries out on paper, in units, what was drawn; false where there are only pixels.
    virtual bool replay(const Surface&) const { return false; }

    /// Whether it has the same pixels at every scale.
    virtual bool isPixels() const { return false; }

    /// Whether it hides all that lies below it.
    virtual bool isOpaque() const { return false; }

    /// Whether nothing of it would be seen.
    virtual bool isClear() const { return size_.isEmpty(); }

    /// Whether it is known to show the same as the other at every scale.
    virtual bool showsWhat(const PictureSource& other) const { return this == &other; }

    /// How many pictures drawn on pictures stand behind this one.
    virtual int depth() const { return 0; }

protected:
    explicit PictureSource(QSize size) : size_(size) {}
    PictureSource(const PictureSource&) = default;

private:
    QSize size_;
};

/// The content of a picture: the steps that were drawn on a blank one, a picture that the program carries, or pixels
/// alone. Pixels are made when they are first needed, at each scale that is asked for; most tiles and many pages never
/// need any.
class Drawing : public PictureSource {
public:
    /// A blank picture: white when it is opaque, else clear.
    Drawing(QSize size, bool opaque);
    /// A clear picture with steps that are made when somebody first looks.
    Drawing(QSize size, std::function<std::vector<Step>()> makeSteps);
    /// A picture that the program carries.
    Drawing(std::string artName, QSize size, bool opaque);
    /// Pixels, as many as the image has. Where the image file that they come from has more, its bytes are kept for
    /// paper.
    Drawing(QSize size, QImage pixels, std::shared_ptr<const std::string> file = nullptr);

    Drawing(const Drawing& other);
    ~Drawing() override;

    bool isOpaque() const override { return opaque_; }
    bool isPixels() const override { return origin_ == Origin::Pixels; }
    const std::vector<Step>& steps() const;

    void draw(Step step);
    /// The pixels at scale 1, to be changed. From now on the picture is these pixels alone.
    QImage& pixels();

    QImage at(int scale) const override;
    QImage allPixels(int scale) const override;
    int scaleToMaskAt(int scale) const override;
    bool replay(const Surface& surface) const override;
    bool isClear() const override;
    bool showsWhat(const PictureSource& other) const override;
    int depth() const override { return depth_; }

private:
    enum class Origin { Blank, Art, Pixels };

    QImage& plain() const;
    QImage blank(int scale) const;
    QImage enlarged(int scale) const;
    bool coversAll(const Step& step) const;

    Origin origin_;
    bool opaque_;
    std::string artName_;
    std::shared_ptr<const std::string> file_;
    mutable std::function<std::vector<Step>()> makeSteps_;
    /// To be read by steps().
    mutable std::vector<Step> steps_;
    int depth_ = 0;
    /// The pixels at scale 1 with the first `painted_` steps on them.
    mutable QImage plain_;
    mutable std::size_t painted_ = 0;
    std::uint64_t id_;
    mutable bool hasLarger_ = false;
};

/// A picture as its `Mask` and `Transparent` let it be seen.
class MaskedPicture : public PictureSource {
public:
    MaskedPicture(std::shared_ptr<const PictureSource> own, std::shared_ptr<const PictureSource> mask,
                  bool whiteIsClear);
    ~MaskedPicture() override;

    QImage at(int scale) const override;
    bool isClear() const override { return own_->isClear(); }
    int depth() const override { return own_->depth() + 1; }

private:
    QImage masked(int scale) const;

    std::shared_ptr<const PictureSource> own_;
    std::shared_ptr<const PictureSource> mask_;
    bool whiteIsClear_;
    mutable QImage plain_;
    std::uint64_t id_;
    mutable bool hasLarger_ = false;
};

/// A picture that the program carries, nil when there is none of this name.
std::shared_ptr<Drawing> carriedPicture(const std::string& name);

} // namespace quorrin

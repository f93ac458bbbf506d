#pragma once
// The filters and kernels every `ImageRegistry` starts with, by family. Images are
// premultiplied linear working pixels; colours are given as sRGB with straight alpha; S is
// "inputImage", D "inputBackgroundImage", M "inputMaskImage". Inputs marked = have a default.
//
// Compositing
//   CISourceOverCompositing   S, D                 S + D (1 - S.a)
//   CIAdditionCompositing     S, D                 S + D; alpha held at 1 at most
//   CISourceAtopCompositing   S, D                 S D.a + D (1 - S.a), within D's extent
//   CISourceOutCompositing    S, D                 S (1 - D.a), within S's extent
//   CIMix                     S, D, inputAmount=1  D + (S - D) amount
//   CIBlendWithRedMask        S, D, M              S m + D (1 - m), m = M's red, held to 0...1
//   CIBlendWithAlphaMask      S, D, M              the same with M's alpha
//   CIBlendWithMask           S, D, M              the same with M's luminance (Rec. 709 weights)
// Colour (on straight colour, then premultiplied again)
//   CIColorMatrix             S, inputRVector=, inputGVector=, inputBVector=, inputAVector=,
//                             inputBiasVector=     see `ColorMatrix`
//   CIColorClamp              S, inputMinComponents=0, inputMaxComponents=1
//   CIColorInvert             S                    1 - c on red, green and blue
//   CIExposureAdjust          S, inputEV           colour × 2^EV
//   ovikDarken (kernel)       1 image, 1 number b  colour × b, alpha kept
// Blurs
//   CIGaussianBlur            S, inputRadius       sigma, in pixels; see `GaussianBlur`
//   CIBoxBlur                 S, inputRadius       a square of 2 round(r) + 1 pixels a side
//   CIMotionBlur              S, inputRadius, inputAngle=0
//                                                  the mean along ±r in the angle's direction
// Generators
//   CIConstantColorGenerator  inputColor           the colour over the plane
//   CILinearGradient          inputPoint0, inputPoint1, inputColor0, inputColor1
//                                                  held beyond the points; infinite
//   CIRadialGradient          inputCenter, inputRadius0, inputRadius1, inputColor0, inputColor1
//   roundedRectangleGenerator inputExtent, inputRadius (corner), inputColor
//                                                  edges antialiased by coverage
//   blurredRoundedRectangleGenerator
//                             inputExtent, inputRadius, inputSigma, inputColor
//                                                  that shape through the Gaussian blur
// Geometry
//   CIAffineTransform         S, inputTransform    bilinear
//   CIAffineTile              S, inputTransform    the extent tiled, then transformed
//   CIAffineClamp             S, inputTransform    transformed, then clamped to its extent
//   CICrop                    S, inputRectangle
//   CILanczosScaleTransform   S, inputScale, inputAspectRatio=1
//                                                  x × scale × aspect, y × scale
namespace ovik {

class ImageRegistry;

void addCompositingFilters(ImageRegistry& registry);
void addColorFilters(ImageRegistry& registry);
void addBlurFilters(ImageRegistry& registry);
void addGeneratorFilters(ImageRegistry& registry);
void addGeometryFilters(ImageRegistry& registry);

} // namespace ovik

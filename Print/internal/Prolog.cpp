// The words of the pages, in one place:
//
//   q Q cm            save, restore, concatenate
//   m l c h re el     path: move, line, curve, close, rectangle, ellipse
//   f F s rf          paint: non-zero, even-odd, stroke, rectangle at once
//   W E               clip: non-zero, even-odd
//   w J j M d         line width, cap, join, mitre limit, dashes
//   g rg k sp         colour: grey, RGB, CMYK, ink
//   la ra gF gR gS P  gradients: linear, radial, function, repeated function, shading, paint
//   cf                colour field
//   xf                a form at several places
//   C1 ...            clips that come back, defined on their page
//   tf t T a A Z      text: font, show, with moves, with spacing, both, outlines
//   ps bp ep fs       page: size, begin, end, first state

#include "Print/internal/Prolog.h"

namespace Drawing::Print {

const std::string_view kBasicProcedures =
    "/languagelevel where{pop languagelevel}{1}ifelse 3 lt\n"
    "{(This document needs a PostScript interpreter of LanguageLevel 3.\\n)print flush stop}if\n"
    "/PSGraphicsPrint 120 dict def\n"
    "PSGraphicsPrint begin\n"
    "/q/gsave load def/Q/grestore load def/cm/concat load def\n"
    "/m/moveto load def/l/lineto load def/c/curveto load def/h/closepath load def\n"
    "/f/fill load def/F/eofill load def/s/stroke load def/rf/rectfill load def\n"
    "/W{clip newpath}bind def/E{eoclip newpath}bind def\n"
    "/w/setlinewidth load def/J/setlinecap load def/j/setlinejoin load def\n"
    "/M/setmiterlimit load def/d/setdash load def\n"
    "/g/setgray load def/rg/setrgbcolor load def/k/setcmykcolor load def\n"
    "/sp{setcolorspace setcolor}bind def\n"
    "/im matrix def/em matrix def\n"
    "/re{4 2 roll m 1 index 0 rlineto 0 exch rlineto neg 0 rlineto h}bind def\n"
    "/el{em currentmatrix pop 4 2 roll translate scale 1 0 m 0 0 1 0 360 arc h em setmatrix}bind "
    "def\n"
    "/tp{makepattern setpattern}bind def\n"
    "/fs{0 g 1 w 0 J 0 j 10 M[]0 d newpath}bind def\n"
    "/ps{2 copy currentpagedevice/PageSize get aload pop 3 -1 roll eq 3 1 roll eq and{pop pop}\n"
    "{2 array astore<</PageSize 3 -1 roll/ImagingBBox null>>setpagedevice}ifelse}bind def\n"
    "/bp{/pg save def .002 setsmoothness fs[1 0 0 -1 0 7 -1 roll]concat}bind def\n"
    "/ep{pg restore showpage}bind def\n"
    "/rq{mark exch{setpagedevice}stopped cleartomark}bind def\n";

const std::string_view kPlacingProcedures =
    "/xf{0 2 2 index length 2 sub{1 index exch 2 getinterval aload pop\n"
    "gsave translate 1 index execform grestore}for pop pop}bind def\n";

const std::string_view kGradientProcedures =
    "/gF{8 dict begin/gb exch def/gn exch def/gc exch def/gk gb length 1 add def\n"
    "/gw gn gc length gn idiv gk 1 add ne{2 mul}if def\n"
    "gk 1 eq\n"
    "{<</FunctionType 2/Domain[0 1]/N 1/C0 gc 0 gn getinterval/C1 gc gn gn getinterval>>}\n"
    "{<</FunctionType 3/Domain[0 1]/Bounds gb/Encode[gk{0 1}repeat]\n"
    "/Functions[0 gw gw gk 1 sub mul{/go exch def<</FunctionType 2/Domain[0 1]/N 1\n"
    "/C0 gc go gn getinterval/C1 gc go gn add gn getinterval>>}for]>>}ifelse end}bind def\n"
    "/gR{8 dict begin/gr exch def/gb exch def/ga exch def/gf exch def\n"
    "<</FunctionType 3/Domain[ga gb]/Functions[gb ga sub{gf}repeat]\n"
    "/Bounds[ga 1 add 1 gb 1 sub{}for]\n"
    "/Encode[ga 1 gb 1 sub{cvi 2 mod 0 ne gr and{1 0}{0 1}ifelse}for]>>end}bind def\n"
    "/gS{8 dict begin 2 array astore/Extend exch def/ColorSpace exch def/ShadingType exch def\n"
    "/Function exch def/Coords exch def currentdict end}bind def\n"
    "/P{<</PatternType 2/Shading 6 -1 roll>>exch makepattern setpattern}bind def\n"
    "/la{3 exch gF 2/DeviceRGB true true gS}bind def\n"
    "/ra{3 exch gF 3/DeviceRGB true true gS}bind def\n"
    "/cf{12 dict begin/DataSource exch def/Size exch def/Range exch def/FunctionType 0 def\n"
    "/Domain[0 1 0 1]def/BitsPerSample 8 def currentdict end\n"
    "8 dict begin/Function exch def/ColorSpace exch def/Matrix exch def/Domain[0 1 0 1]def\n"
    "/ShadingType 1 def currentdict end}bind def\n";

const std::string_view kTextProcedures =
    "/tf{[exch dup 0 0 3 -1 roll neg 0 0]selectfont}bind def\n"
    "/t/show load def/a/ashow load def\n"
    "/T{{dup type/stringtype eq{show}{0 rmoveto}ifelse}forall}bind def\n"
    "/A{exch{dup type/stringtype eq{1 index 0 3 -1 roll ashow}{0 rmoveto}ifelse}forall pop}bind "
    "def\n"
    "/ch 1 string def\n"
    "/Z{exch{dup type/stringtype eq{1 index 0 eq{false charpath}\n"
    "{{ch 0 3 -1 roll put ch false charpath dup 0 rmoveto}forall}ifelse}{0 rmoveto}ifelse}forall "
    "pop}bind def\n";

}  // namespace Drawing::Print

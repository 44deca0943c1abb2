% The opening of J. S. Bach's Prelude in C major (BWV 846), without words, so that the page is
% drawn by outlines alone.
\version "2.24.1"
#(set-global-staff-size 18)
\paper {
  #(set-paper-size '(cons (* 190 mm) (* 80 mm)))
  top-margin = 5\mm  bottom-margin = 5\mm  left-margin = 8\mm  right-margin = 8\mm
  indent = 0  ragged-last = ##f  print-page-number = ##f
}
\header { tagline = ##f }
upper = \fixed c' {
  \clef treble \time 4/4
  r8 g16 c' e' g c' e' r8 g16 c' e' g c' e'
  r8 a16 d' f' a d' f' r8 a16 d' f' a d' f'
  r8 g16 d' f' g d' f' r8 g16 d' f' g d' f'
  r8 g16 c' e' g c' e' r8 g16 c' e' g c' e'
  r8 a16 e' a' a e' a' r8 a16 e' a' a e' a'
  <e g c'>1\fermata \bar "|."
}
lower = \fixed c' {
  \clef bass \time 4/4
  << { r16 e8.~ e4 r16 e8.~ e4 } \\ { c2 c2 } >>
  << { r16 d8.~ d4 r16 d8.~ d4 } \\ { c2 c2 } >>
  << { r16 d8.~ d4 r16 d8.~ d4 } \\ { b,2 b,2 } >>
  << { r16 e8.~ e4 r16 e8.~ e4 } \\ { c2 c2 } >>
  << { r16 e8.~ e4 r16 e8.~ e4 } \\ { c2 c2 } >>
  <c, c>1\fermata
}
\score { \new PianoStaff << \new Staff \upper \new Staff \lower >> \layout { \context { \Score \omit BarNumber } } }

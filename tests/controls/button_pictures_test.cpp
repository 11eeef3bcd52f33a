// What the pictures of the buttons look like, in a grid as fine as they are drawn on.
#include "controls/button_pictures.h"

#include <gtest/gtest.h>

#include <cmath>
#include <string>
#include <utility>
#include <vector>

namespace depcalc {
namespace {

/// Two dots to a unit: half a unit is the least that a stroke is moved by.
class Canvas {
 public:
  void put(double x, double y) {
    rows_.at(static_cast<std::size_t>(std::lround(2 * y)))
        .at(static_cast<std::size_t>(std::lround(2 * x))) = '#';
  }
  void line(double x, double y, double to_x, double to_y) {
    constexpr int steps = 200;
    for (int i = 0; i <= steps; ++i) {
      put(x + (to_x - x) * i / steps, y + (to_y - y) * i / steps);
    }
  }
  [[nodiscard]] std::string text() const {
    std::string text;
    for (const std::string& row : rows_) {
      text += row.substr(0, row.find_last_not_of(' ') + 1) + '\n';
    }
    return text;
  }

 private:
  static constexpr std::size_t side = 2 * static_cast<std::size_t>(picture_side) + 1;
  std::vector<std::string> rows_ = std::vector(side, std::string(side, ' '));
};

/// Draws as a toolkit does; a corner's arc only where it meets the sides.
class Pen {
 public:
  explicit Pen(Canvas& canvas) : canvas_(canvas) {}

  void draw(const Stroke& s) {
    switch (s.kind) {
      case Stroke::Kind::move:
        begin_ = at_ = s;
        return;
      case Stroke::Kind::line:
        to(s);
        return;
      case Stroke::Kind::close:
        to(begin_);
        return;
      case Stroke::Kind::rectangle:
      case Stroke::Kind::roundedRectangle:
        frame(s);
        return;
      case Stroke::Kind::dot:
        canvas_.put(s.x, s.y);
        return;
    }
  }

 private:
  void to(const Stroke& end) {
    canvas_.line(at_.x, at_.y, end.x, end.y);
    at_ = end;
  }
  void frame(const Stroke& s) {
    const double right = s.x + s.width;
    const double bottom = s.y + s.height;
    for (const double y : {s.y, bottom}) canvas_.line(s.x + s.radius, y, right - s.radius, y);
    for (const double x : {s.x, right}) canvas_.line(x, s.y + s.radius, x, bottom - s.radius);
  }

  Canvas& canvas_;
  Stroke begin_;
  Stroke at_;
};

std::string drawn(std::string_view name) {
  Canvas canvas;
  Pen pen(canvas);
  for (const Stroke& stroke : buttonPicture(name)->strokes) pen.draw(stroke);
  return canvas.text();
}

TEST(ButtonPictures, AreDrawnLikeThis) {
  struct Case {
    const char* name;
    const char* picture;
  };
  const std::vector<Case> cases = {
      Case{"calc", R"(


        #################


     #                     #
     #                     #
     #    #############    #
     #    #           #    #
     #    #           #    #
     #    #           #    #
     #    #           #    #
     #    #############    #
     #                     #
     #                     #
     #                     #
     #                     #
     #                     #
     #    #     #     #    #
     #                     #
     #                     #
     #                     #
     #                     #
     #                     #
     #    #     #     #    #
     #                     #
     #                     #
     #                     #


        #################


)"},
      Case{"new", R"(





                #
                #
                #
                #
                #
                #
                #
                #
                #
                #
                #
     #######################
                #
                #
                #
                #
                #
                #
                #
                #
                #
                #
                #





)"},
      Case{"save", R"(







                           #
                          ##
                         ##
                        ##
                        #
                       ##
                      ##
                     ##
                    ##
                    #
     #             ##
      #           ##
       #         ##
        #        #
         #      ##
          #    ##
           #  ##
            ###
             #







)"},
      Case{"edit", R"(





                     ##
                    ####
                   ##  ##
                  ##    ##
                 ##      ##
                ####      ##
               ##  ##     ##
              ##    ##   ##
             ##      ## ##
            ##        ###
           ##         ##
          ##         ##
         ##         ##
        ##         ##
       ##         ##
      ##         ##
      #         ##
     ##        ##
     #        ##
     #       ##
     #      ##
    ##    ###
    # #####
    ###




)"},
      Case{"delete", R"(




            #########
            #       #
            #       #
            #       #
     #######################
        #               #
        #               #
        #               #
        #               #
        #               #
        #     #   #     #
         #    #   #    #
         #    #   #    #
         #    #   #    #
         #    #   #    #
         #    #   #    #
         #    #   #    #
         #    #   #    #
         #    #   #    #
         #    #   #    #
         #             #
         #             #
         #             #
         #             #
          #           #
          #############



)"},
      Case{"print", R"(



        #################
        #               #
        #               #
        #               #
        #               #
        #               #
        #               #
        #               #
     #######################

   #                         #
   #                         #
   #                         #
   #                         #
   #                         #
   #                         #
   #    #################    #
   #    #               #    #
   #    #               #    #
        #               #
     #######################
        #               #
        #               #
        #               #
        #               #
        #               #
        #################



)"},
      Case{"close", R"(






      #                   #
       #                 ##
        #               ##
         #             ##
          #           ##
           #         ##
            #       ##
             #     ##
              #   ##
               # ##
                ##
               ###
              ##  #
             ##    #
            ##      #
           ##        #
          ##          #
         ##            #
        ##              #
       ##                #
      ##                  #






)"},
  };
  for (const Case& c : cases) EXPECT_EQ('\n' + drawn(c.name), c.picture) << c.name;
}

TEST(ButtonPictures, AreThereForEveryButtonAndStayInTheirSquare) {
  for (const std::string_view name :
       {"calc", "new", "clear", "save", "edit", "delete", "print", "close"}) {
    const ButtonPicture* const picture = buttonPicture(name);
    ASSERT_NE(picture, nullptr) << name;
    EXPECT_EQ(buttonPicture(std::string(name) + "-pressed"), picture);
    EXPECT_EQ(picture->bare, name == "close");
    constexpr double half_pen = picture_pen / 2;
    for (const Stroke& stroke : picture->strokes) {
      if (stroke.kind == Stroke::Kind::close) continue;
      for (const auto& [from, size] :
           {std::pair{stroke.x, stroke.width}, std::pair{stroke.y, stroke.height}}) {
        EXPECT_GE(from - half_pen, 0) << name;
        EXPECT_LE(from + size + half_pen, picture_side) << name;
      }
    }
  }
  for (const char* name : {"paste", "-pressed", "cal"}) EXPECT_FALSE(hasPicture(name)) << name;
}

}  // namespace
}  // namespace depcalc

// The style of the box about a file that cannot be saved, which a real box does not show.
#include <gmock/gmock.h>

#include "filetools/xml_conversion.h"
#include "support/box_answers.h"
#include "support/fake_host.h"

TEST(XmlConversionBox, IsAnErrorWithOkAlone) {
  FakeHost host;
  host.SelectFiles({W("a.xml")});
  host.xmlFiles[W("C:\\view\\a.xml")].canBeSaved = false;
  BoxAnswers boxes{IDOK};
  ConvertXmlCommand(host, true);
  ASSERT_THAT(boxes.Boxes(), testing::SizeIs(1));
  EXPECT_EQ(boxes.Boxes()[0].style, 16u);
}

#include "Model/LabelExport.h"
#include "Model/LabelImport.h"

#include <gtest/gtest.h>

namespace corvane {

namespace {

using namespace Qt::StringLiterals;

using Labels = QHash<qint64, QString>;

RouterState stateWith(const QStringList& sources, const QStringList& destinations)
{
    RouterState state;
    for (const auto& name : sources)
        state.sources << Port{state.sources.size(), PortKind::source, name};
    for (const auto& name : destinations)
        state.destinations << Port{state.destinations.size(), PortKind::destination, name};
    return state;
}

/// "s 0 CAM 1|d 2 MON": the ports by kind and index.
QString textOf(const ParsedLabels& labels)
{
    QStringList lines;
    const auto add = [&lines](QChar kind, const Labels& names) {
        auto indices = names.keys();
        std::ranges::sort(indices);
        for (const auto index : indices)
            lines << u"%1 %2 %3"_s.arg(kind).arg(index).arg(names[index]);
    };
    add(u's', labels.sources);
    add(u'd', labels.destinations);
    return lines.join(u'|');
}

TEST(LabelExchangeTest, WritesXml)
{
    auto state = stateWith({u"A&B<C>"_s, u"\"it's\""_s}, {});
    state.deviceName = u"R&D"_s;
    state.sources[1].index = 7;
    EXPECT_EQ(LabelExport::xml(state), uR"(<?xml version="1.0" encoding="UTF-8"?>
<routerLabels device="R&amp;D">
  <sources>
    <port number="1" name="A&amp;B&lt;C&gt;"/>
    <port number="8" name="&quot;it's&quot;"/>
  </sources>
  <destinations>

  </destinations>
</routerLabels>)"_s);
}

TEST(LabelExchangeTest, WritesRowsForTheLongerSide)
{
    EXPECT_EQ(
        LabelExport::tsv(stateWith({u"CAM 1"_s, u"CAM 2"_s}, {u"MON"_s})), u"1\tCAM 1\tMON\n2\tCAM 2\t"_s);
    EXPECT_EQ(LabelExport::tsv(stateWith({}, {u"MON"_s})), u"1\t\tMON"_s);
    EXPECT_EQ(LabelExport::tsv(RouterState()), QString());
}

TEST(LabelExchangeTest, ReadsWhatItWrote)
{
    const auto state =
        stateWith({u"A&B<C>"_s, u"Größe \"3\""_s, u"摄像机"_s}, {u"x, 5 %2"_s, u"'"_s, u"1"_s});
    const auto expected = u"s 0 A&B<C>|s 1 Größe \"3\"|s 2 摄像机|d 0 x, 5 %2|d 1 '|d 2 1"_s;
    EXPECT_EQ(textOf(LabelImport::parseXML(LabelExport::xml(state).toUtf8())), expected);
    EXPECT_EQ(textOf(LabelImport::parseDelimited(LabelExport::tsv(state), DelimitedTarget::both)), expected);
}

TEST(LabelExchangeTest, ReadsRows)
{
    using enum DelimitedTarget;
    struct Case {
        QString text;
        DelimitedTarget target = both;
        QString expected;
    };
    const Case cases[] = {
        {u"3\tCAM\tMON\textra"_s, both, u"s 2 CAM|d 2 MON"_s},
        {u"+2,CAM,MON\n 4 , , MON 4\n6,CAM 6,,"_s, both, u"s 1 CAM|s 5 CAM 6|d 1 MON|d 3 MON 4"_s},
        // What is trimmed from a line takes its empty first and last cells along.
        {u"1\tCAM\t\n\tA\tB"_s, both, u"s 0 1|s 1 A|d 0 CAM|d 1 B"_s},
        {u"0, A, B\n-1,A,B"_s, both, QString()},
        {u"3.0,A,B\n,A,B"_s, both, u"s 0 3.0|d 0 A|d 1 A"_s},
        {u"Source, Destination\nA,B"_s, both, u"s 0 Source|s 1 A|d 0 Destination|d 1 B"_s},
        {u"A\nB,C\n\n \t\nD,\nE,F"_s, both, u"s 0 A|s 1 B|s 2 D|s 3 E|d 0 C|d 2 F"_s},
        {u"A\rB\u2028C\u0085D\fE\vF\u2029G\r\nH"_s, sources,
            u"s 0 A|s 1 B|s 2 C|s 3 D|s 4 E|s 5 F|s 6 G|s 7 H"_s},
        {u"3, Cam, Three"_s, sources, u"s 2 Cam Three"_s},
        {u"Cam, Three\nNext"_s, destinations, u"d 0 Cam|d 1 Next"_s},
        {u"7\n2,\"A\n2\tA, B\n1,"_s, sources, u"s 0 7|s 1 A, B"_s},
        {u",A\n,,\nB"_s, sources, u"s 2 B"_s},
        {u"9223372036854775808,A\n9223372036854775807,B"_s, sources,
            u"s 0 9223372036854775808|s 9223372036854775806 B"_s},
        {QString(), both, QString()},
    };
    for (const auto& c : cases)
        EXPECT_EQ(textOf(LabelImport::parseDelimited(c.text, c.target)), c.expected) << c.text.toStdString();
}

TEST(LabelExchangeTest, ReadsTheXmlOfManyMakers)
{
    struct Case {
        const char* document;
        QString expected;
    };
    const Case cases[] = {
        {"<inputs><item>CAM 1</item><item> CAM\n2 </item></inputs>", u"s 0 CAM 1|s 1 CAM\n2"_s},
        {"<Router><OutputList><Port ID='3' LABEL='MON'/><io/><row>next</row></OutputList></Router>",
            u"d 2 MON|d 3 next"_s},
        {"<r><in n='2'>A</in><out idx=' +1 '>B</out><src>C</src><dest title='D'/></r>",
            u"s 1 A|s 2 C|d 0 B|d 1 D"_s},
        {"<destinations><src>A</src><port>B</port></destinations><", u"s 0 A|d 0 B"_s},
        {"<sources><port number='0' name='X'/><port number='-3' name='Y'/></sources>", QString()},
        {"<sources><port number='abc' id='5' name='X'/><port index='' num='4' name='Y'/></sources>",
            u"s 0 X|s 1 Y"_s},
        {"<sources><port num='4' Index='2' INDEX='9' alias='no' name='yes'/></sources>", u"s 1 yes"_s},
        {"<sources><port number='3'><label>Cam</label></port></sources>", u"s 0 Cam"_s},
        {"<sources><port number='3'><x>Cam</x></port></sources>", QString()},
        {"<sources><port number='3' name=' '>text<inputs/> Cam </port></sources>", u"s 2 Cam"_s},
        {"<r><port name='nowhere'/><sources/><port name='nor here'/></r>", QString()},
        {"<a:sources xmlns:a='u'><port name='X'/></a:sources>", QString()},
        {"<sources><port number='5' name='A'/><port number='2' name='B'/><port name='C'/></sources>",
            u"s 1 B|s 4 A|s 5 C"_s},
        {"<sources><port>A&amp;<![CDATA[<B>]]></port></sources>", u"s 0 A&<B>"_s},
        {"<sources><port name='A'/><port name='B", u"s 0 A"_s},
        {"<!DOCTYPE r [<!ENTITY a 'aaaa'><!ENTITY b '&a;&a;'>]><sources><in>A</in><in>&b;</in></sources>",
            u"s 0 A"_s},
        {"<!DOCTYPE r [<!ENTITY x SYSTEM 'file:///etc/passwd'>]><sources><in>A</in><in>&x;</in></sources>",
            u"s 0 A"_s},
        {"no XML at all", QString()},
    };
    for (const auto& c : cases)
        EXPECT_EQ(textOf(LabelImport::parseXML(c.document)), c.expected) << c.document;
}

} // namespace

} // namespace corvane

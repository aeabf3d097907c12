<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="zh_CN">
<context>
    <name>DialogProgrammer</name>
    <message>
        <source>Dialog</source>
        <translation>序列编程器</translation>
    </message>
    <message>
        <source>List</source>
        <translation>列表</translation>
    </message>
    <message>
        <source>Template</source>
        <translation>模板</translation>
    </message>
    <message>
        <source>Voltage:</source>
        <translation>电压：</translation>
    </message>
    <message>
        <source>V</source>
        <translation>V</translation>
    </message>
    <message>
        <source>Maximum:</source>
        <translation>最大值：</translation>
    </message>
    <message>
        <source>Type:</source>
        <translation>类型：</translation>
    </message>
    <message>
        <source>Minimum:</source>
        <translation>最小值：</translation>
    </message>
    <message>
        <source>Object:</source>
        <translation>对象：</translation>
    </message>
    <message>
        <source>Voltage</source>
        <translation>电压</translation>
    </message>
    <message>
        <source>Current</source>
        <translation>电流</translation>
    </message>
    <message>
        <source>Reset</source>
        <translation>重置</translation>
    </message>
    <message>
        <source>Reset All</source>
        <translation>全部重置</translation>
    </message>
    <message>
        <source>Interval:</source>
        <translation>间隔：</translation>
    </message>
    <message>
        <source>s</source>
        <translation>s</translation>
    </message>
    <message>
        <source>Period:</source>
        <translation>周期：</translation>
    </message>
    <message>
        <source>Cycles:</source>
        <translation>循环次数：</translation>
    </message>
    <message>
        <source>Inverted</source>
        <translation>反相</translation>
    </message>
    <message>
        <source>Width:</source>
        <translation>宽度：</translation>
    </message>
    <message>
        <source>Count:</source>
        <translation>数量：</translation>
    </message>
    <message>
        <source>Symmetry:</source>
        <translation>对称度：</translation>
    </message>
    <message>
        <source>%</source>
        <translation>%</translation>
    </message>
    <message>
        <source>Steps:</source>
        <translation>阶数：</translation>
    </message>
    <message>
        <source>Groups:</source>
        <translation>组数：</translation>
    </message>
    <message>
        <source>Exp Rate:</source>
        <translation>指数速率：</translation>
    </message>
    <message>
        <source>Insert</source>
        <translation>插入</translation>
    </message>
    <message>
        <source>Append</source>
        <translation>追加</translation>
    </message>
    <message>
        <source>Data</source>
        <translation>数据</translation>
    </message>
    <message>
        <source>Basic</source>
        <translation>基本设置</translation>
    </message>
    <message>
        <source>Channel:</source>
        <translation>通道：</translation>
    </message>
    <message>
        <source>CH1</source>
        <translation>CH1</translation>
    </message>
    <message>
        <source>CH2</source>
        <translation>CH2</translation>
    </message>
    <message>
        <source>CH3</source>
        <translation>CH3</translation>
    </message>
    <message>
        <source>CH4</source>
        <translation>CH4</translation>
    </message>
    <message>
        <source>Series</source>
        <translation>串联</translation>
    </message>
    <message>
        <source>Parallel</source>
        <translation>并联</translation>
    </message>
    <message>
        <source>End State:</source>
        <translation>结束状态：</translation>
    </message>
    <message>
        <source>Load</source>
        <translation>加载</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>保存</translation>
    </message>
    <message>
        <source>Upload</source>
        <translation>上传</translation>
    </message>
    <message>
        <source>Delayer</source>
        <translation>延时器</translation>
    </message>
    <message>
        <source>Auto Generate</source>
        <translation>自动生成</translation>
    </message>
    <message>
        <source>Pattern:</source>
        <translation>模式：</translation>
    </message>
    <message>
        <source>On Delay:</source>
        <translation>开启时长：</translation>
    </message>
    <message>
        <source>Off Delay:</source>
        <translation>关闭时长：</translation>
    </message>
    <message>
        <source>Base Value:</source>
        <translation>基准值：</translation>
    </message>
    <message>
        <source>Step:</source>
        <translation>步长：</translation>
    </message>
    <message>
        <source>Fix Time</source>
        <translation>固定时间</translation>
    </message>
    <message>
        <source>Increase</source>
        <translation>递增</translation>
    </message>
    <message>
        <source>Decline</source>
        <translation>递减</translation>
    </message>
    <message>
        <source>ListUpload</source>
        <translation>上传列表</translation>
    </message>
    <message>
        <source>Upload List</source>
        <translation>上传列表</translation>
    </message>
    <message>
        <source>DelayerUpload</source>
        <translation>上传延时器</translation>
    </message>
    <message>
        <source>Upload Delayer</source>
        <translation>上传延时器</translation>
    </message>
    <message>
        <source>Sine</source>
        <translation>正弦</translation>
    </message>
    <message>
        <source>Pulse</source>
        <translation>脉冲</translation>
    </message>
    <message>
        <source>Ramp</source>
        <translation>斜坡</translation>
    </message>
    <message>
        <source>Stair Up</source>
        <translation>阶梯上升</translation>
    </message>
    <message>
        <source>Stair Down</source>
        <translation>阶梯下降</translation>
    </message>
    <message>
        <source>Stair Up Down</source>
        <translation>阶梯升降</translation>
    </message>
    <message>
        <source>Exponent Rise</source>
        <translation>指数上升</translation>
    </message>
    <message>
        <source>Exponent Fall</source>
        <translation>指数下降</translation>
    </message>
</context>
<context>
    <name>tarn2::specific::orvo5000::programmer::ComboBoxDelegate</name>
    <message>
        <source>OFF</source>
        <translation>OFF</translation>
    </message>
    <message>
        <source>ON</source>
        <translation>ON</translation>
    </message>
</context>
<context>
    <name>tarn2::specific::orvo5000::programmer::DelayerTemplateModel</name>
    <message>
        <source>No.</source>
        <translation>序号</translation>
    </message>
    <message>
        <source>State</source>
        <translation>状态</translation>
    </message>
    <message>
        <source>Time(s)</source>
        <translation>时间(s)</translation>
    </message>
</context>
<context>
    <name>tarn2::specific::orvo5000::programmer::DialogProgrammer</name>
    <message>
        <source>Invalid</source>
        <translation>无效</translation>
    </message>
    <message>
        <source>This template would make %1 steps; at most %2 are allowed</source>
        <translation>此模板将生成 %1 步；最多允许 %2 步</translation>
    </message>
    <message>
        <source>Output Off</source>
        <translation>输出关闭</translation>
    </message>
    <message>
        <source>Output On</source>
        <translation>输出开启</translation>
    </message>
    <message>
        <source>Last</source>
        <translation>保持最后状态</translation>
    </message>
    <message>
        <source>Infinite</source>
        <translation>无限</translation>
    </message>
    <message>
        <source>01 Pattern</source>
        <translation>01 模式</translation>
    </message>
    <message>
        <source>10 Pattern</source>
        <translation>10 模式</translation>
    </message>
    <message>
        <source>State</source>
        <translation>状态</translation>
    </message>
    <message>
        <source>Voltage(V)</source>
        <translation>电压(V)</translation>
    </message>
    <message>
        <source>Current(A)</source>
        <translation>电流(A)</translation>
    </message>
    <message>
        <source>Voltage</source>
        <translation>电压</translation>
    </message>
    <message>
        <source>Current</source>
        <translation>电流</translation>
    </message>
    <message>
        <source>Current:</source>
        <translation>电流：</translation>
    </message>
    <message>
        <source>Voltage:</source>
        <translation>电压：</translation>
    </message>
    <message>
        <source>Append</source>
        <translation>追加</translation>
    </message>
    <message>
        <source>Insert</source>
        <translation>插入</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>删除</translation>
    </message>
    <message>
        <source>Clear</source>
        <translation>清空</translation>
    </message>
    <message>
        <source>The %1 data is empty</source>
        <translation>%1数据为空</translation>
    </message>
    <message>
        <source>list</source>
        <translation>列表</translation>
    </message>
    <message>
        <source>delayer</source>
        <translation>延时器</translation>
    </message>
    <message>
        <source>The level at the bottom of the waveform</source>
        <translation>波形底部的电平</translation>
    </message>
    <message>
        <source>The level at the top of the waveform</source>
        <translation>波形顶部的电平</translation>
    </message>
    <message>
        <source>The value of the quantity the waveform does not shape, the same at every step</source>
        <translation>波形不改变的那个量的值，每一步都相同</translation>
    </message>
    <message>
        <source>The length of one period of the waveform</source>
        <translation>波形一个周期的时长</translation>
    </message>
    <message>
        <source>How long each step lasts: the waveform is sampled once per interval</source>
        <translation>每一步持续的时间：每个间隔对波形采样一次</translation>
    </message>
    <message>
        <source>How many periods the template makes</source>
        <translation>模板生成的周期数</translation>
    </message>
    <message>
        <source>Turns the waveform upside down</source>
        <translation>将波形上下翻转</translation>
    </message>
    <message>
        <source>How long each pulse stays at the top</source>
        <translation>每个脉冲保持在顶部的时间</translation>
    </message>
    <message>
        <source>How many pulses the template makes</source>
        <translation>模板生成的脉冲数</translation>
    </message>
    <message>
        <source>Where in the period the ramp turns, in percent: 0 only falls, 100 only rises, 50 rises and falls alike</source>
        <translation>斜坡在周期中的转折位置（百分比）：0 只下降，100 只上升，50 上升与下降相同</translation>
    </message>
    <message>
        <source>How many steps share the period</source>
        <translation>均分周期的步数</translation>
    </message>
    <message>
        <source>How fast the curve approaches its end: a higher rate bends it sooner</source>
        <translation>曲线趋近终值的快慢：速率越高，弯曲越早</translation>
    </message>
    <message>
        <source>How many steps the curve has, each as long as the interval</source>
        <translation>曲线的步数，每步时长等于间隔</translation>
    </message>
    <message>
        <source>How many On and Off steps the template makes</source>
        <translation>模板生成的开、关步数</translation>
    </message>
    <message>
        <source>How long the output stays On at each On step</source>
        <translation>每个开步骤中输出保持开启的时间</translation>
    </message>
    <message>
        <source>How long the output stays Off at each Off step</source>
        <translation>每个关步骤中输出保持关闭的时间</translation>
    </message>
    <message>
        <source>How long the first step lasts</source>
        <translation>第一步持续的时间</translation>
    </message>
    <message>
        <source>How much longer each step lasts than the one before</source>
        <translation>每一步比前一步长多少</translation>
    </message>
    <message>
        <source>How much shorter each step lasts than the one before; the last must stay longer than zero</source>
        <translation>每一步比前一步短多少；最后一步必须大于零</translation>
    </message>
</context>
<context>
    <name>tarn2::specific::orvo5000::programmer::ListDataModel</name>
    <message>
        <source>No.</source>
        <translation>序号</translation>
    </message>
    <message>
        <source>Voltage(V)</source>
        <translation>电压(V)</translation>
    </message>
    <message>
        <source>Current(A)</source>
        <translation>电流(A)</translation>
    </message>
    <message>
        <source>Time(s)</source>
        <translation>时间(s)</translation>
    </message>
</context>
<context>
    <name>tarn2::specific::orvo5000::programmer::ListTemplateModel</name>
    <message>
        <source>No.</source>
        <translation>序号</translation>
    </message>
    <message>
        <source>Voltage(V)</source>
        <translation>电压(V)</translation>
    </message>
    <message>
        <source>Current(A)</source>
        <translation>电流(A)</translation>
    </message>
    <message>
        <source>Time(s)</source>
        <translation>时间(s)</translation>
    </message>
</context>
<context>
    <name>tarn2::specific::orvo5000::programmer::ProgrammerUploader</name>
    <message>
        <source>The upload timed out</source>
        <translation>上传超时</translation>
    </message>
</context>
<context>
    <name>tarn2::specific::orvo5000::programmer::RangeNotice</name>
    <message>
        <source>%1 is above the largest value, %2</source>
        <translation>%1 超过最大值 %2</translation>
    </message>
    <message>
        <source>%1 is below the smallest value, %2</source>
        <translation>%1 低于最小值 %2</translation>
    </message>
    <message>
        <source>From %1 to %2</source>
        <translation>从 %1 到 %2</translation>
    </message>
    <message>
        <source>From %1 to %2 %3</source>
        <translation>从 %1 到 %2 %3</translation>
    </message>
</context>
</TS>

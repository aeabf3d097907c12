<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="zh_CN">
<context>
    <name>QObject</name>
    <message>
        <source>%1 is not an address of the form tcp://HOST[:PORT]</source>
        <translation>%1 不是 tcp://HOST[:PORT] 形式的地址</translation>
    </message>
    <message>
        <source>%1 has no usable port</source>
        <translation>%1 没有可用的端口</translation>
    </message>
    <message>
        <source>%1: the only option is ?baud=N</source>
        <translation>%1：唯一的选项是 ?baud=N</translation>
    </message>
    <message>
        <source>%1 names no serial device</source>
        <translation>%1 未指定串口设备</translation>
    </message>
    <message>
        <source>%1: the only option is ?speed=F</source>
        <translation>%1：唯一的选项是 ?speed=F</translation>
    </message>
    <message>
        <source>%1 is not an instrument address: use tcp://HOST[:PORT], serial:DEVICE[?baud=N] or sim:</source>
        <translation>%1 不是仪器地址：请使用 tcp://HOST[:PORT]、serial:DEVICE[?baud=N] 或 sim:</translation>
    </message>
    <message>
        <source>field &quot;%1&quot;: no such command word</source>
        <translation>字段“%1”：没有这个命令字</translation>
    </message>
    <message>
        <source>field &quot;%1&quot;: must be one non-empty line</source>
        <translation>字段“%1”：必须是一行非空文本</translation>
    </message>
    <message>
        <source>field &quot;%1&quot;: must hold no placeholder</source>
        <translation>字段“%1”：不得包含占位符</translation>
    </message>
    <message>
        <source>field &quot;%1&quot;: must hold the placeholders %2</source>
        <translation>字段“%1”：必须包含占位符 %2</translation>
    </message>
    <message>
        <source>CSV files (*.csv);;All files (*)</source>
        <translation>CSV 文件 (*.csv);;所有文件 (*)</translation>
    </message>
</context>
<context>
    <name>tarn::host::BenchController</name>
    <message>
        <source>no answer within %1 s</source>
        <translation>%1 秒内无应答</translation>
    </message>
    <message>
        <source>Connecting to %1</source>
        <translation>正在连接 %1</translation>
    </message>
    <message>
        <source>(no identity)</source>
        <translation>(无标识)</translation>
    </message>
    <message>
        <source>Connected to %1</source>
        <translation>已连接到 %1</translation>
    </message>
    <message>
        <source>The connection to %1 was lost: %2</source>
        <translation>与 %1 的连接已断开：%2</translation>
    </message>
    <message>
        <source>Could not connect to %1: %2</source>
        <translation>无法连接到 %1:%2</translation>
    </message>
    <message>
        <source>disconnected by the user</source>
        <translation>已由用户断开</translation>
    </message>
    <message>
        <source>Disconnected</source>
        <translation>已断开</translation>
    </message>
</context>
<context>
    <name>tarn::host::InstrumentLink</name>
    <message>
        <source>The instrument sent a reply longer than %1 bytes</source>
        <translation>仪器发送的应答超过 %1 字节</translation>
    </message>
</context>
<context>
    <name>tarn::host::MainWindow</name>
    <message>
        <source>Command Traffic</source>
        <translation>命令通信</translation>
    </message>
    <message>
        <source>Run</source>
        <translation>运行</translation>
    </message>
    <message>
        <source>Bench Sequence Programmer</source>
        <translation>台式电源序列编程器</translation>
    </message>
    <message>
        <source>Not connected</source>
        <translation>未连接</translation>
    </message>
    <message>
        <source>Connection</source>
        <translation>连接</translation>
    </message>
    <message>
        <source>Instrument:</source>
        <translation>仪器：</translation>
    </message>
    <message>
        <source>tcp://HOST[:PORT] for a LAN instrument, serial:DEVICE[?baud=N] for a serial one, sim: for the simulated supply</source>
        <translation>tcp://HOST[:PORT] 用于局域网仪器，serial:DEVICE[?baud=N] 用于串口仪器，sim: 用于模拟电源</translation>
    </message>
    <message>
        <source>Connect</source>
        <translation>连接</translation>
    </message>
    <message>
        <source>Disconnect</source>
        <translation>断开</translation>
    </message>
    <message>
        <source>&amp;File</source>
        <translation>文件(&amp;F)</translation>
    </message>
    <message>
        <source>Save List...</source>
        <translation>保存列表...</translation>
    </message>
    <message>
        <source>Load List...</source>
        <translation>加载列表...</translation>
    </message>
    <message>
        <source>Save Delayer...</source>
        <translation>保存延时器...</translation>
    </message>
    <message>
        <source>Load Delayer...</source>
        <translation>加载延时器...</translation>
    </message>
    <message>
        <source>&amp;Quit</source>
        <translation>退出(&amp;Q)</translation>
    </message>
    <message>
        <source>&amp;View</source>
        <translation>视图(&amp;V)</translation>
    </message>
    <message>
        <source>Command &amp;Traffic</source>
        <translation>命令通信(&amp;T)</translation>
    </message>
    <message>
        <source>&amp;Run View</source>
        <translation>运行视图(&amp;R)</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation>帮助(&amp;H)</translation>
    </message>
    <message>
        <source>&amp;About</source>
        <translation>关于(&amp;A)</translation>
    </message>
    <message>
        <source>Cancel Upload</source>
        <translation>取消上传</translation>
    </message>
    <message>
        <source>End the upload now; the instrument keeps the steps it has taken</source>
        <translation>立即结束上传；仪器保留已接收的步骤</translation>
    </message>
    <message>
        <source>%1 of %2 steps confirmed, %3 s left</source>
        <translation>已确认 %1/%2 步，剩余 %3 秒</translation>
    </message>
    <message>
        <source>%1 of %2 steps confirmed</source>
        <translation>已确认 %1/%2 步</translation>
    </message>
    <message>
        <source>Disconnected</source>
        <translation>已断开</translation>
    </message>
    <message>
        <source>Connecting...</source>
        <translation>正在连接...</translation>
    </message>
    <message>
        <source>Connected</source>
        <translation>已连接</translation>
    </message>
    <message>
        <source>About the Bench Sequence Programmer</source>
        <translation>关于台式电源序列编程器</translation>
    </message>
    <message>
        <source>&lt;p&gt;&lt;b&gt;Bench Sequence Programmer&lt;/b&gt;&lt;/p&gt;&lt;p&gt;Programs the List and Delayer sequences of multi-channel bench supplies, uploads them with read-back verification and keeps them in CSV files.&lt;/p&gt;&lt;p&gt;Instrument: %1&lt;/p&gt;</source>
        <translation>&lt;p&gt;&lt;b&gt;台式电源序列编程器&lt;/b&gt;&lt;/p&gt;&lt;p&gt;为多通道台式电源编写列表和延时器序列，上传后回读校验，并保存为 CSV 文件。&lt;/p&gt;&lt;p&gt;仪器：%1&lt;/p&gt;</translation>
    </message>
    <message>
        <source>not connected</source>
        <translation>未连接</translation>
    </message>
</context>
<context>
    <name>tarn::host::RunSession</name>
    <message>
        <source>Upload and verify a sequence on this channel first</source>
        <translation>请先在此通道上传并校验一个序列</translation>
    </message>
    <message>
        <source>Not connected to an instrument</source>
        <translation>未连接仪器</translation>
    </message>
    <message>
        <source>The instrument refused to run the sequence: %1</source>
        <translation>仪器拒绝运行该序列：%1</translation>
    </message>
    <message>
        <source>The instrument&apos;s position reply could not be read: %1</source>
        <translation>无法读取仪器的位置应答：%1</translation>
    </message>
    <message>
        <source>Stopped; the output is as the end state leaves it</source>
        <translation>已停止；输出保持结束状态所设定的状态</translation>
    </message>
    <message>
        <source>The sequence ended after 1 cycle</source>
        <translation>序列在 1 个循环后结束</translation>
    </message>
    <message>
        <source>The sequence ended after %1 cycles</source>
        <translation>序列在 %1 个循环后结束</translation>
    </message>
    <message>
        <source>The connection was lost during the run (%1); the trace so far is kept</source>
        <translation>运行期间连接断开（%1）；已记录的曲线予以保留</translation>
    </message>
    <message>
        <source>The instrument stopped answering during the run (no reply to %1); the trace so far is kept</source>
        <translation>运行期间仪器停止应答（%1 无应答）；已记录的曲线予以保留</translation>
    </message>
</context>
<context>
    <name>tarn::host::RunView</name>
    <message>
        <source>List</source>
        <translation>列表</translation>
    </message>
    <message>
        <source>Delayer</source>
        <translation>延时器</translation>
    </message>
    <message>
        <source>endless</source>
        <translation>无限循环</translation>
    </message>
    <message>
        <source>1 cycle</source>
        <translation>1 个循环</translation>
    </message>
    <message>
        <source>%1 cycles</source>
        <translation>%1 个循环</translation>
    </message>
    <message>
        <source>%1 on %2: %3 steps, %4</source>
        <translation>%2 上的%1：%3 步，%4</translation>
    </message>
    <message>
        <source>Run</source>
        <translation>运行</translation>
    </message>
    <message>
        <source>Stop</source>
        <translation>停止</translation>
    </message>
    <message>
        <source>Export Trace...</source>
        <translation>导出记录...</translation>
    </message>
    <message>
        <source>Export Plot...</source>
        <translation>导出图表...</translation>
    </message>
    <message>
        <source>The sequences uploaded and verified in this session</source>
        <translation>本次会话中已上传并校验的序列</translation>
    </message>
    <message>
        <source>Switch the output on and play the sequence on the instrument</source>
        <translation>打开输出并在仪器上运行该序列</translation>
    </message>
    <message>
        <source>Stop the sequence; the output goes to its end state</source>
        <translation>停止序列；输出进入其结束状态</translation>
    </message>
    <message>
        <source>Save the measured trace as CSV</source>
        <translation>将测量记录保存为 CSV</translation>
    </message>
    <message>
        <source>Save the plot as PNG</source>
        <translation>将图表保存为 PNG</translation>
    </message>
    <message>
        <source>Time (s)</source>
        <translation>时间 (s)</translation>
    </message>
    <message>
        <source>Upload a sequence and let it be verified; it can then be run here. What the instrument held before was not verified by this program and is not offered.</source>
        <translation>请上传一个序列并完成校验，之后即可在此运行。仪器中原有的内容未经本程序校验，因此不予提供。</translation>
    </message>
    <message>
        <source>Starting...</source>
        <translation>正在启动...</translation>
    </message>
    <message>
        <source>Planned voltage</source>
        <translation>计划电压</translation>
    </message>
    <message>
        <source>Measured voltage</source>
        <translation>测量电压</translation>
    </message>
    <message>
        <source>Planned current</source>
        <translation>计划电流</translation>
    </message>
    <message>
        <source>Measured current</source>
        <translation>测量电流</translation>
    </message>
    <message>
        <source>Voltage (V)</source>
        <translation>电压 (V)</translation>
    </message>
    <message>
        <source>Current (A)</source>
        <translation>电流 (A)</translation>
    </message>
    <message>
        <source>Planned output</source>
        <translation>计划输出</translation>
    </message>
    <message>
        <source>Output state</source>
        <translation>输出状态</translation>
    </message>
    <message>
        <source>Output (1 = On)</source>
        <translation>输出 (1 = 开)</translation>
    </message>
    <message>
        <source>%1 s</source>
        <translation>%1 秒</translation>
    </message>
    <message>
        <source>Not running · %1 steps, %2 per cycle, %3 in all</source>
        <translation>未运行 · %1 步，每循环 %2，共 %3</translation>
    </message>
    <message>
        <source>Step %1 of %2 · cycle %3 of %4 · %5 s of %6</source>
        <translation>第 %1/%2 步 · 第 %3/%4 个循环 · %5 秒/%6</translation>
    </message>
    <message>
        <source>Cannot write %1: %2</source>
        <translation>无法写入 %1:%2</translation>
    </message>
    <message>
        <source>Export Trace</source>
        <translation>导出记录</translation>
    </message>
    <message>
        <source>CSV files (*.csv)</source>
        <translation>CSV 文件 (*.csv)</translation>
    </message>
    <message>
        <source>Export Plot</source>
        <translation>导出图表</translation>
    </message>
    <message>
        <source>PNG images (*.png)</source>
        <translation>PNG 图像 (*.png)</translation>
    </message>
    <message>
        <source>Cannot write %1</source>
        <translation>无法写入 %1</translation>
    </message>
</context>
<context>
    <name>tarn::host::SequenceFiles</name>
    <message>
        <source>Save List</source>
        <translation>保存列表</translation>
    </message>
    <message>
        <source>Could not write %1</source>
        <translation>无法写入 %1</translation>
    </message>
    <message>
        <source>Save Delayer</source>
        <translation>保存延时器</translation>
    </message>
    <message>
        <source>Load List</source>
        <translation>加载列表</translation>
    </message>
    <message>
        <source>%1 holds no usable list</source>
        <translation>%1 中没有可用的列表</translation>
    </message>
    <message>
        <source>Load Delayer</source>
        <translation>加载延时器</translation>
    </message>
    <message>
        <source>%1 holds no usable delayer sequence</source>
        <translation>%1 中没有可用的延时器序列</translation>
    </message>
</context>
<context>
    <name>tarn::host::SerialLink</name>
    <message>
        <source>Cannot open %1: %2</source>
        <translation>无法打开 %1:%2</translation>
    </message>
</context>
<context>
    <name>tarn::host::TcpLink</name>
    <message>
        <source>The instrument closed the connection</source>
        <translation>仪器关闭了连接</translation>
    </message>
</context>
<context>
    <name>tarn::host::TrafficPanel</name>
    <message>
        <source>Copy All</source>
        <translation>全部复制</translation>
    </message>
    <message>
        <source>Copy the whole log to the clipboard, for a bug report</source>
        <translation>将完整日志复制到剪贴板，用于报告问题</translation>
    </message>
    <message>
        <source>Clear</source>
        <translation>清空</translation>
    </message>
    <message>
        <source> … (%1 bytes)</source>
        <translation> … (%1 字节)</translation>
    </message>
</context>
<context>
    <name>tarn::host::UploadSession</name>
    <message>
        <source>%1 V, %2 A, %3 s</source>
        <translation>%1 V, %2 A, %3 s</translation>
    </message>
    <message>
        <source>%1 for %2 s</source>
        <translation>%1 持续 %2 秒</translation>
    </message>
    <message>
        <source>On</source>
        <translation>开</translation>
    </message>
    <message>
        <source>Off</source>
        <translation>关</translation>
    </message>
    <message>
        <source>Not connected to an instrument: connect first, then upload</source>
        <translation>未连接仪器：请先连接，再上传</translation>
    </message>
    <message>
        <source>This instrument has no channel %1</source>
        <translation>该仪器没有通道 %1</translation>
    </message>
    <message>
        <source>The instrument refused the upload&apos;s settings: %1</source>
        <translation>仪器拒绝了上传的设置：%1</translation>
    </message>
    <message>
        <source>The instrument&apos;s error reply could not be read: %1</source>
        <translation>无法读取仪器的错误应答：%1</translation>
    </message>
    <message>
        <source>The instrument refused a step: %1</source>
        <translation>仪器拒绝了一个步骤：%1</translation>
    </message>
    <message>
        <source>Step %1 was refused by the instrument: %2 (it holds %3 of %4 steps)</source>
        <translation>第 %1 步被仪器拒绝：%2（仪器中有 %3/%4 步）</translation>
    </message>
    <message>
        <source>The instrument&apos;s read-back could not be read</source>
        <translation>无法读取仪器的回读数据</translation>
    </message>
    <message>
        <source>Step %1 differs: sent %2, the instrument holds %3</source>
        <translation>第 %1 步不一致：发送的是 %2，仪器中为 %3</translation>
    </message>
    <message>
        <source>The instrument holds %1 steps, %2 were sent</source>
        <translation>仪器中有 %1 步，已发送 %2 步</translation>
    </message>
    <message>
        <source>Verified %1 steps on %2</source>
        <translation>已在 %2 上校验 %1 步</translation>
    </message>
    <message>
        <source>%1: %2 of %3 steps were sent, %4 confirmed by the instrument</source>
        <translation>%1：已发送 %2/%3 步，仪器确认 %4 步</translation>
    </message>
    <message>
        <source>Upload cancelled</source>
        <translation>上传已取消</translation>
    </message>
    <message>
        <source>Upload cancelled: the instrument holds %1 of %2 steps</source>
        <translation>上传已取消：仪器中有 %1/%2 步</translation>
    </message>
    <message>
        <source>The connection was lost during the upload (%1): %2 of %3 steps were confirmed</source>
        <translation>上传期间连接断开（%1）：已确认 %2/%3 步</translation>
    </message>
    <message>
        <source>The instrument did not answer %1 within %2 ms: %3 of %4 steps were confirmed</source>
        <translation>仪器未在 %2 毫秒内应答 %1：已确认 %3/%4 步</translation>
    </message>
</context>
</TS>

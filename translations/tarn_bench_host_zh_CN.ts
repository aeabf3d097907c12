<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="zh_CN">
<context>
    <name>History</name>
    <message>
        <source>the history server %1 stopped answering: %2</source>
        <translation>历史服务器 %1 停止响应：%2</translation>
    </message>
    <message numerus="yes">
        <source>%n record(s) wait in %1 until the history server is back</source>
        <translation>
            <numerusform>%n 条记录在 %1 中等待，直到历史服务器恢复</numerusform>
        </translation>
    </message>
    <message>
        <source>the history server has every waiting record now</source>
        <translation>历史服务器已收到所有等待的记录</translation>
    </message>
</context>
<context>
    <name>HistoryStore</name>
    <message>
        <source>%1 is not a readable history (%2): it was set aside as %3 and a new history was started</source>
        <translation>%1 不是可读的历史记录（%2）：已另存为 %3，并新建了历史记录</translation>
    </message>
    <message>
        <source>%1 cannot be read: %2</source>
        <translation>无法读取 %1：%2</translation>
    </message>
    <message>
        <source>it is not a database</source>
        <translation>它不是数据库</translation>
    </message>
    <message>
        <source>%1 is held by another program for too long; nothing was changed</source>
        <translation>%1 被其他程序占用过久；未做任何更改</translation>
    </message>
    <message>
        <source>%1 was written by a newer version of the bench tools; it is left as it is</source>
        <translation>%1 由更新版本的工具写入；保持原样</translation>
    </message>
    <message>
        <source>it is another program&apos;s database</source>
        <translation>它是其他程序的数据库</translation>
    </message>
    <message>
        <source>it is damaged</source>
        <translation>它已损坏</translation>
    </message>
    <message>
        <source>this machine has no PostgreSQL driver for Qt (libqt5sql5-psql)</source>
        <translation>本机没有 Qt 的 PostgreSQL 驱动（libqt5sql5-psql）</translation>
    </message>
    <message>
        <source>the history server %1 cannot be reached: %2</source>
        <translation>无法连接历史服务器 %1：%2</translation>
    </message>
    <message>
        <source>the history was written by a newer version of the bench tools</source>
        <translation>该历史记录由更新版本的工具写入</translation>
    </message>
    <message>
        <source>The recording ended without the run&apos;s end: the program stopped abruptly</source>
        <translation>记录在运行结束前中断：程序意外终止</translation>
    </message>
</context>
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
    <message>
        <source>List</source>
        <translation>列表</translation>
    </message>
    <message>
        <source>Delayer</source>
        <translation>延时器</translation>
    </message>
    <message>
        <source>line %1: %2</source>
        <translation>第 %1 行：%2</translation>
    </message>
    <message>
        <source>voltage</source>
        <translation>电压</translation>
    </message>
    <message>
        <source>current</source>
        <translation>电流</translation>
    </message>
    <message>
        <source>time</source>
        <translation>时间</translation>
    </message>
    <message>
        <source>the %1 &quot;%2&quot; is not a number</source>
        <translation>%1“%2”不是数字</translation>
    </message>
    <message>
        <source>the state &quot;%1&quot; is not On or Off</source>
        <translation>状态“%1”既不是 On 也不是 Off</translation>
    </message>
    <message>
        <source>the time &quot;%1&quot; is not a number</source>
        <translation>时间“%1”不是数字</translation>
    </message>
    <message>
        <source>the file is empty or cannot be read</source>
        <translation>文件为空或无法读取</translation>
    </message>
    <message>
        <source>this is a %1 file, not a %2 file</source>
        <translation>这是%1文件，不是%2文件</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not the head of a %2 file (%3,10)</source>
        <translation>“%1”不是%2文件的文件头（%3,10）</translation>
    </message>
    <message>
        <source>line %1: the file ends before its head is complete</source>
        <translation>第 %1 行：文件在文件头完整之前就已结束</translation>
    </message>
    <message>
        <source>the repeat count (Cycles) is missing</source>
        <translation>缺少循环次数（Cycles）</translation>
    </message>
    <message>
        <source>the repeat count &quot;%1&quot; is not Infinite or a number from 0 to %2</source>
        <translation>循环次数“%1”既不是 Infinite，也不是 0 到 %2 之间的数字</translation>
    </message>
    <message>
        <source>the end state (End Status) is missing</source>
        <translation>缺少结束状态（End Status）</translation>
    </message>
    <message>
        <source>the end state &quot;%1&quot; is not Output Off, Output On or Last</source>
        <translation>结束状态“%1”不是 Output Off、Output On 或 Last</translation>
    </message>
    <message>
        <source>the number of steps (Groups) is missing</source>
        <translation>缺少步数（Groups）</translation>
    </message>
    <message>
        <source>Groups &quot;%1&quot; is not a number</source>
        <translation>Groups 的值“%1”不是数字</translation>
    </message>
    <message>
        <source>Groups %1 is above this instrument&apos;s %2</source>
        <translation>Groups %1 超过了此仪器可容纳的 %2 步</translation>
    </message>
    <message>
        <source>Groups %1 is below 1</source>
        <translation>Groups %1 小于 1</translation>
    </message>
    <message>
        <source>more steps than this instrument&apos;s %1</source>
        <translation>步数超过了此仪器可容纳的 %1 步</translation>
    </message>
    <message>
        <source>%1 fields where %2 are expected</source>
        <translation>有 %1 个字段，应为 %2 个</translation>
    </message>
    <message>
        <source>the file holds no steps</source>
        <translation>文件中没有步骤</translation>
    </message>
    <message>
        <source>a List file cannot end in Output On</source>
        <translation>列表文件的结束状态不能是 Output On</translation>
    </message>
    <message>
        <source>%1 cells where %2 are expected</source>
        <translation>有 %1 个单元格，应为 %2 个</translation>
    </message>
    <message>
        <source>the clipboard holds no rows</source>
        <translation>剪贴板中没有数据行</translation>
    </message>
    <message>
        <source>%1 %2 is not a finite number</source>
        <translation>%1 %2 不是有限数值</translation>
    </message>
    <message>
        <source>%1 %2 %3 is above %4&apos;s %5 %3</source>
        <translation>%1 %2 %3 高于 %4 的上限 %5 %3</translation>
    </message>
    <message>
        <source>%1 %2 %3 is below %4&apos;s %5 %3</source>
        <translation>%1 %2 %3 低于 %4 的下限 %5 %3</translation>
    </message>
    <message>
        <source>channel %1</source>
        <translation>通道 %1</translation>
    </message>
    <message>
        <source>time %1 is not a finite number</source>
        <translation>时间 %1 不是有限数值</translation>
    </message>
    <message>
        <source>time %1 s is below the shortest step of %2 s</source>
        <translation>时间 %1 秒短于最短步骤时间 %2 秒</translation>
    </message>
    <message>
        <source>time %1 s is above the longest step of %2 s</source>
        <translation>时间 %1 秒长于最长步骤时间 %2 秒</translation>
    </message>
    <message>
        <source>Change repeat count or end state</source>
        <translation>更改循环次数或结束状态</translation>
    </message>
    <message>
        <source>Edit steps</source>
        <translation>编辑步骤</translation>
    </message>
    <message>
        <source>Unsaved sequence</source>
        <translation>未保存的序列</translation>
    </message>
    <message>
        <source>Not uploaded: 1 step cannot be sent to %1; the first is step No. %2: %3</source>
        <translation>未上传：第 %2 号步骤无法发送到 %1：%3</translation>
    </message>
    <message>
        <source>Not uploaded: %1 steps cannot be sent to %2; the first is step No. %3: %4</source>
        <translation>未上传：有 %1 步无法发送到 %2；第一个是第 %3 号步骤：%4</translation>
    </message>
    <message numerus="yes">
        <source>Add %n steps</source>
        <translation>
            <numerusform>添加 %n 步</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Clear %n steps</source>
        <translation>
            <numerusform>清空 %n 步</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Delete %n steps</source>
        <translation>
            <numerusform>删除 %n 步</numerusform>
        </translation>
    </message>
    <message>
        <source>voltage %1 V is above %2&apos;s over-voltage protection level of %3 V</source>
        <translation>电压 %1 V 高于 %2 的过压保护值 %3 V</translation>
    </message>
    <message>
        <source>current %1 A is above %2&apos;s over-current protection level of %3 A</source>
        <translation>电流 %1 A 高于 %2 的过流保护值 %3 A</translation>
    </message>
    <message>
        <source>%1: a socket resource is TCPIP[board]::HOST::PORT::SOCKET</source>
        <translation>%1：套接字资源的格式为 TCPIP[board]::HOST::PORT::SOCKET</translation>
    </message>
    <message>
        <source>%1 names no host</source>
        <translation>%1 未指定主机</translation>
    </message>
    <message>
        <source>%1: port &quot;%2&quot; is not a number from 1 to 65535</source>
        <translation>%1：端口“%2”不是 1 到 65535 之间的数字</translation>
    </message>
    <message>
        <source>%1: a USB resource is USB[board]::VENDOR::PRODUCT::SERIAL[::INTERFACE]::INSTR</source>
        <translation>%1：USB 资源的格式为 USB[board]::VENDOR::PRODUCT::SERIAL[::INTERFACE]::INSTR</translation>
    </message>
    <message>
        <source>%1: vendor &quot;%2&quot; is not a 16-bit number such as 0x1234</source>
        <translation>%1：厂商“%2”不是 0x1234 这样的 16 位数字</translation>
    </message>
    <message>
        <source>%1: product &quot;%2&quot; is not a 16-bit number such as 0x5678</source>
        <translation>%1：产品“%2”不是 0x5678 这样的 16 位数字</translation>
    </message>
    <message>
        <source>%1 gives no serial number</source>
        <translation>%1 未给出序列号</translation>
    </message>
    <message>
        <source>%1: interface &quot;%2&quot; is not a number</source>
        <translation>%1：接口“%2”不是数字</translation>
    </message>
    <message>
        <source>%1: a resource string ends in ::INSTR or ::SOCKET</source>
        <translation>%1：资源字符串应以 ::INSTR 或 ::SOCKET 结尾</translation>
    </message>
    <message>
        <source>%1: a serial resource is ASRL/DEVICE::INSTR</source>
        <translation>%1：串口资源的格式为 ASRL/DEVICE::INSTR</translation>
    </message>
    <message>
        <source>%1: name the serial port by its device file, as in ASRL/dev/ttyUSB0::INSTR</source>
        <translation>%1：请用设备文件指定串口，例如 ASRL/dev/ttyUSB0::INSTR</translation>
    </message>
    <message>
        <source>%1: a USB resource ends in ::INSTR</source>
        <translation>%1：USB 资源应以 ::INSTR 结尾</translation>
    </message>
    <message>
        <source>%1: &quot;%2&quot; is not a kind of resource this host reaches; it reaches TCPIP, USB and ASRL resources</source>
        <translation>%1：“%2”不是本程序可访问的资源类型；本程序可访问 TCPIP、USB 和 ASRL 资源</translation>
    </message>
    <message>
        <source>%1: give the device file, as in usbtmc:/dev/usbtmc0</source>
        <translation>%1：请给出设备文件，例如 usbtmc:/dev/usbtmc0</translation>
    </message>
    <message>
        <source>%1 is not an address of the form vxi11://HOST[:PORT][/DEVICE]</source>
        <translation>%1 不是 vxi11://HOST[:PORT][/DEVICE] 形式的地址</translation>
    </message>
    <message>
        <source>%1: device &quot;%2&quot; is not a VXI-11 device name such as inst0</source>
        <translation>%1：设备“%2”不是 inst0 这样的 VXI-11 设备名</translation>
    </message>
    <message>
        <source>%1: a VXI-11 resource is TCPIP[board]::HOST[::DEVICE]::INSTR</source>
        <translation>%1：VXI-11 资源的格式为 TCPIP[board]::HOST[::DEVICE]::INSTR</translation>
    </message>
    <message>
        <source>%1 is not an instrument address: use tcp://HOST[:PORT], vxi11://HOST[:PORT][/DEVICE], serial:DEVICE[?baud=N], usbtmc:DEVICE, sim:, or a resource string such as TCPIP0::HOST::5025::SOCKET, TCPIP0::HOST::inst0::INSTR, USB0::0x1234::0x5678::SERIAL::INSTR or ASRL/dev/ttyUSB0::INSTR</source>
        <translation>%1 不是仪器地址：请使用 tcp://HOST[:PORT]、vxi11://HOST[:PORT][/DEVICE]、serial:DEVICE[?baud=N]、usbtmc:DEVICE、sim:，或 TCPIP0::HOST::5025::SOCKET、TCPIP0::HOST::inst0::INSTR、USB0::0x1234::0x5678::SERIAL::INSTR、ASRL/dev/ttyUSB0::INSTR 这样的资源字符串</translation>
    </message>
</context>
<context>
    <name>TraceOverlay</name>
    <message>
        <source>Plan of %1</source>
        <translation>%1 的计划</translation>
    </message>
    <message>
        <source>Planned current of %1</source>
        <translation>%1 的计划电流</translation>
    </message>
    <message>
        <source>Voltage of %1</source>
        <translation>%1 的电压</translation>
    </message>
    <message>
        <source>Output of %1</source>
        <translation>%1 的输出</translation>
    </message>
    <message>
        <source>Current of %1</source>
        <translation>%1 的电流</translation>
    </message>
    <message>
        <source>Voltage (V)</source>
        <translation>电压 (V)</translation>
    </message>
    <message>
        <source>Output (1 = On)</source>
        <translation>输出 (1 = 开)</translation>
    </message>
    <message>
        <source>Current (A)</source>
        <translation>电流 (A)</translation>
    </message>
</context>
<context>
    <name>tarn::history::HistoryRecorder</name>
    <message>
        <source>The upload could not be recorded in the history: %1</source>
        <translation>无法在历史记录中记录此次上传：%1</translation>
    </message>
    <message>
        <source>The run could not be recorded in the history: %1</source>
        <translation>无法在历史记录中记录此次运行：%1</translation>
    </message>
    <message>
        <source>The run&apos;s samples could not be written to the history: %1</source>
        <translation>无法将运行的样本写入历史记录：%1</translation>
    </message>
    <message>
        <source>The end of the run could not be recorded in the history: %1</source>
        <translation>无法在历史记录中记录运行的结束：%1</translation>
    </message>
</context>
<context>
    <name>tarn::host::BenchController</name>
    <message>
        <source>%1 (%2 of %3 steps sent; the instrument holds no more)</source>
        <translation>%1（已发送 %2/%3 步；仪器无法容纳更多步骤）</translation>
    </message>
</context>
<context>
    <name>tarn::host::CloseGuard</name>
    <message>
        <source>The %1 sequence has changed since it was last saved or loaded. Save it before closing?</source>
        <translation>%1序列自上次保存或加载以来已更改。是否在关闭前保存？</translation>
    </message>
    <message>
        <source>The List and Delayer sequences have changed since they were last saved or loaded. Save them before closing?</source>
        <translation>列表序列和延时器序列自上次保存或加载以来已更改。是否在关闭前保存？</translation>
    </message>
</context>
<context>
    <name>tarn::host::HistoryDock</name>
    <message>
        <source>History</source>
        <translation>历史记录</translation>
    </message>
    <message>
        <source>Nothing is recorded: %1</source>
        <translation>不记录任何内容：%1</translation>
    </message>
    <message>
        <source>The sequence of %1 is in the %2 tab; Undo puts back what was there</source>
        <translation>%1 的序列已放入 %2 标签页；撤销可恢复原来的内容</translation>
    </message>
    <message>
        <source>List</source>
        <translation>列表</translation>
    </message>
    <message>
        <source>Delayer</source>
        <translation>延时器</translation>
    </message>
    <message>
        <source>A run is going on; plot recorded runs once it has ended</source>
        <translation>正在运行；请在运行结束后再绘制已记录的运行</translation>
    </message>
</context>
<context>
    <name>tarn::host::HistoryModel</name>
    <message>
        <source>Run</source>
        <translation>运行</translation>
    </message>
    <message>
        <source>Upload</source>
        <translation>上传</translation>
    </message>
    <message>
        <source>List</source>
        <translation>列表</translation>
    </message>
    <message>
        <source>Delayer</source>
        <translation>延时器</translation>
    </message>
    <message>
        <source>Record</source>
        <translation>记录</translation>
    </message>
    <message>
        <source>Started</source>
        <translation>开始时间</translation>
    </message>
    <message>
        <source>Kind</source>
        <translation>类型</translation>
    </message>
    <message>
        <source>Channel</source>
        <translation>通道</translation>
    </message>
    <message>
        <source>Steps</source>
        <translation>步数</translation>
    </message>
    <message>
        <source>Outcome</source>
        <translation>结果</translation>
    </message>
    <message>
        <source>Station</source>
        <translation>工位</translation>
    </message>
    <message>
        <source>Message</source>
        <translation>消息</translation>
    </message>
</context>
<context>
    <name>tarn::host::HistoryPanel</name>
    <message>
        <source>Open in Editor</source>
        <translation>在编辑器中打开</translation>
    </message>
    <message>
        <source>Plot</source>
        <translation>绘图</translation>
    </message>
    <message>
        <source>Export...</source>
        <translation>导出...</translation>
    </message>
    <message>
        <source>Instrument</source>
        <translation>仪器</translation>
    </message>
    <message>
        <source>Any channel</source>
        <translation>任意通道</translation>
    </message>
    <message>
        <source>Any outcome</source>
        <translation>任意结果</translation>
    </message>
    <message>
        <source>Any date</source>
        <translation>任意日期</translation>
    </message>
    <message>
        <source>Search</source>
        <translation>搜索</translation>
    </message>
    <message>
        <source>Put the record&apos;s sequence into its tab, as one change to undo</source>
        <translation>将记录的序列放入其标签页，作为一次可撤销的更改</translation>
    </message>
    <message>
        <source>Draw a run over its plan, or two runs over each other, in the run view</source>
        <translation>在运行视图中将一次运行叠加在其计划上，或将两次运行相互叠加</translation>
    </message>
    <message>
        <source>Save the sequence file, and a run&apos;s trace beside it</source>
        <translation>保存序列文件，并在旁边保存运行的曲线</translation>
    </message>
    <message>
        <source>The newest %1 records that match</source>
        <translation>最新的 %1 条匹配记录</translation>
    </message>
    <message>
        <source>Select one record to export</source>
        <translation>请选择一条要导出的记录</translation>
    </message>
    <message>
        <source>Cannot write %1</source>
        <translation>无法写入 %1</translation>
    </message>
    <message>
        <source>Export %1</source>
        <translation>导出 %1</translation>
    </message>
    <message>
        <source>CSV files (*.csv)</source>
        <translation>CSV 文件 (*.csv)</translation>
    </message>
    <message>
        <source>Wrote %1 and %2</source>
        <translation>已写入 %1 和 %2</translation>
    </message>
    <message>
        <source>Wrote %1</source>
        <translation>已写入 %1</translation>
    </message>
</context>
<context>
    <name>tarn::host::InstrumentConnection</name>
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
        <source>Connected to %1; it did not tell its limits, so those of the instrument description apply</source>
        <translation>已连接到 %1；仪器未告知其限值，因此采用仪器描述中的限值</translation>
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
    <name>tarn::host::InstrumentStatusView</name>
    <message>
        <source>Clear Trip</source>
        <translation>清除保护</translation>
    </message>
    <message>
        <source>%1 over-voltage and over-current</source>
        <translation>%1 过压和过流</translation>
    </message>
    <message>
        <source>%1 over-voltage</source>
        <translation>%1 过压</translation>
    </message>
    <message>
        <source>%1 over-current</source>
        <translation>%1 过流</translation>
    </message>
    <message>
        <source>Protection tripped: %1</source>
        <translation>保护已触发：%1</translation>
    </message>
    <message numerus="yes">
        <source>%n errors waiting</source>
        <translation>
            <numerusform>%n 个错误待读取</numerusform>
        </translation>
    </message>
    <message>
        <source>No trips, no errors</source>
        <translation>无保护触发，无错误</translation>
    </message>
    <message>
        <source>Clears the tripped protection of %1; the output stays off until it is switched on again</source>
        <translation>清除 %1 已触发的保护；输出保持关闭，直到再次打开</translation>
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
        <source>About the Bench Sequence Programmer</source>
        <translation>关于台式电源序列编程器</translation>
    </message>
    <message>
        <source>not connected</source>
        <translation>未连接</translation>
    </message>
    <message>
        <source>Untitled List</source>
        <translation>未命名列表</translation>
    </message>
    <message>
        <source>Untitled Delayer</source>
        <translation>未命名延时器</translation>
    </message>
    <message>
        <source>%1[*] — Bench Sequence Programmer</source>
        <translation>%1[*] — 台式电源序列编程器</translation>
    </message>
    <message>
        <source>Show the Run View After Each &amp;Verified Upload</source>
        <translation>每次校验上传后显示运行视图(&amp;V)</translation>
    </message>
    <message>
        <source>&amp;Instrument</source>
        <translation>仪器(&amp;I)</translation>
    </message>
    <message>
        <source>&amp;Connect</source>
        <translation>连接(&amp;C)</translation>
    </message>
    <message>
        <source>Connect to the instrument at the address in the bar</source>
        <translation>连接到地址栏中的仪器</translation>
    </message>
    <message>
        <source>&amp;Disconnect</source>
        <translation>断开(&amp;D)</translation>
    </message>
    <message>
        <source>&amp;Upload the Tab&apos;s Sequence</source>
        <translation>上传当前标签页的序列(&amp;U)</translation>
    </message>
    <message>
        <source>&amp;Run</source>
        <translation>运行(&amp;R)</translation>
    </message>
    <message>
        <source>&amp;Stop</source>
        <translation>停止(&amp;S)</translation>
    </message>
    <message>
        <source>Connected to %1</source>
        <translation>已连接到 %1</translation>
    </message>
    <message>
        <source>&lt;p&gt;&lt;b&gt;Bench Sequence Programmer %1&lt;/b&gt;&lt;/p&gt;&lt;p&gt;Programs the List and Delayer sequences of multi-channel bench supplies, uploads them with read-back verification and keeps them in CSV files.&lt;/p&gt;&lt;p&gt;Built with Qt %2 (running on Qt %3) and QCustomPlot %4.&lt;/p&gt;&lt;p&gt;Instrument: %5&lt;/p&gt;</source>
        <translation>&lt;p&gt;&lt;b&gt;台式电源序列编程器 %1&lt;/b&gt;&lt;/p&gt;&lt;p&gt;为多通道台式电源编写列表和延时器序列，上传并回读校验，并保存为 CSV 文件。&lt;/p&gt;&lt;p&gt;基于 Qt %2 构建（运行于 Qt %3）和 QCustomPlot %4。&lt;/p&gt;&lt;p&gt;仪器：%5&lt;/p&gt;</translation>
    </message>
    <message>
        <source>&amp;History</source>
        <translation>历史记录(&amp;H)</translation>
    </message>
    <message>
        <source>tcp://HOST[:PORT] or TCPIP0::HOST::PORT::SOCKET for a LAN instrument&apos;s raw socket, vxi11://HOST[:PORT][/DEVICE] or TCPIP0::HOST[::DEVICE]::INSTR for a VXI-11 one, serial:DEVICE[?baud=N] or ASRL/DEVICE::INSTR for a serial one, usbtmc:DEVICE or USB0::VENDOR::PRODUCT::SERIAL::INSTR for a USB one, sim: for the simulated supply</source>
        <translation>局域网仪器的原始套接字用 tcp://HOST[:PORT] 或 TCPIP0::HOST::PORT::SOCKET，VXI-11 仪器用 vxi11://HOST[:PORT][/DEVICE] 或 TCPIP0::HOST[::DEVICE]::INSTR，串口仪器用 serial:DEVICE[?baud=N] 或 ASRL/DEVICE::INSTR，USB 仪器用 usbtmc:DEVICE 或 USB0::VENDOR::PRODUCT::SERIAL::INSTR，模拟电源用 sim:</translation>
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
        <source>Switch the output on and play the sequence on the instrument</source>
        <translation>打开输出并在仪器上运行该序列</translation>
    </message>
    <message>
        <source>Stop the sequence; the output goes to its end state</source>
        <translation>停止序列；输出进入其结束状态</translation>
    </message>
    <message>
        <source>Time (s)</source>
        <translation>时间 (s)</translation>
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
        <source>%1 s</source>
        <translation>%1 秒</translation>
    </message>
    <message>
        <source>Not running · %1 steps, %2 per cycle, %3 in all</source>
        <translation>未运行 · %1 步，每循环 %2，共 %3</translation>
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
    <message>
        <source>The sequences the instrument holds as this program uploaded and verified them since it connected</source>
        <translation>自连接以来本程序上传并校验、仪器当前保存的序列</translation>
    </message>
    <message>
        <source>Save the measured samples of the run shown as CSV</source>
        <translation>将所示运行的测量样本保存为 CSV</translation>
    </message>
    <message>
        <source>Save the plot as a PNG image, titled with the instrument, channel, sequence and date</source>
        <translation>将图表保存为 PNG 图像，标题包含仪器、通道、序列和日期</translation>
    </message>
    <message>
        <source>Upload a sequence and let it be verified; it can then be run here.</source>
        <translation>上传序列并完成校验后，即可在此运行。</translation>
    </message>
    <message>
        <source>The instrument holds nothing this program verified since it connected; the last run stays here to export.</source>
        <translation>自连接以来仪器中没有本程序校验过的序列；上次运行保留在此以供导出。</translation>
    </message>
    <message>
        <source>Output</source>
        <translation>输出</translation>
    </message>
    <message>
        <source>Off</source>
        <translation>关</translation>
    </message>
    <message>
        <source>On</source>
        <translation>开</translation>
    </message>
    <message>
        <source>Step No. %1 of %2 steps · cycle %3 of %4 · %5 s of %6</source>
        <translation>第 %1 号步骤（共 %2 步）· 第 %3 / %4 周期 · %5 s / %6</translation>
    </message>
    <message>
        <source>Saved %1 samples to %2</source>
        <translation>已将 %1 个样本保存到 %2</translation>
    </message>
    <message>
        <source>Saved the plot to %1</source>
        <translation>已将图表保存到 %1</translation>
    </message>
</context>
<context>
    <name>tarn::host::SequenceClipboard</name>
    <message>
        <source>&amp;Delete Rows</source>
        <translation>删除行(&amp;D)</translation>
    </message>
    <message>
        <source>&amp;Copy Rows</source>
        <translation>复制行(&amp;C)</translation>
    </message>
    <message>
        <source>&amp;Paste Rows</source>
        <translation>粘贴行(&amp;P)</translation>
    </message>
    <message numerus="yes">
        <source>Copied %n steps</source>
        <translation>
            <numerusform>已复制 %n 步</numerusform>
        </translation>
    </message>
    <message>
        <source>Not pasted: %1</source>
        <translation>未粘贴：%1</translation>
    </message>
    <message numerus="yes">
        <source>Pasted %n steps</source>
        <translation>
            <numerusform>已粘贴 %n 步</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>tarn::host::SequenceEditor</name>
    <message>
        <source>&amp;Undo</source>
        <translation>撤销(&amp;U)</translation>
    </message>
    <message>
        <source>&amp;Redo</source>
        <translation>重做(&amp;R)</translation>
    </message>
    <message>
        <source>&amp;Save Sequence...</source>
        <translation>保存序列(&amp;S)...</translation>
    </message>
    <message>
        <source>Save the sequence of the tab shown to a CSV file</source>
        <translation>将当前标签页的序列保存到 CSV 文件</translation>
    </message>
    <message>
        <source>&amp;Open Sequence...</source>
        <translation>打开序列(&amp;O)...</translation>
    </message>
    <message>
        <source>Load a CSV file into the tab shown</source>
        <translation>将 CSV 文件加载到当前标签页</translation>
    </message>
    <message>
        <source>&amp;Edit</source>
        <translation>编辑(&amp;E)</translation>
    </message>
    <message>
        <source>&amp;Undo %1</source>
        <translation>撤销 %1(&amp;U)</translation>
    </message>
    <message>
        <source>&amp;Redo %1</source>
        <translation>重做 %1(&amp;R)</translation>
    </message>
</context>
<context>
    <name>tarn::host::SequenceFiles</name>
    <message>
        <source>%1 was not opened: %2</source>
        <translation>%1 未打开：%2</translation>
    </message>
    <message>
        <source>line 1: it is not a List or Delayer file</source>
        <translation>第 1 行：这既不是列表文件也不是延时器文件</translation>
    </message>
    <message>
        <source>Open Sequence</source>
        <translation>打开序列</translation>
    </message>
    <message>
        <source>Load %1</source>
        <translation>加载%1</translation>
    </message>
    <message>
        <source>%1 was not loaded: %2</source>
        <translation>%1 未加载：%2</translation>
    </message>
    <message>
        <source>the folder %1 does not exist</source>
        <translation>文件夹 %1 不存在</translation>
    </message>
    <message>
        <source>it is a folder</source>
        <translation>这是一个文件夹</translation>
    </message>
    <message>
        <source>the file could not be written completely</source>
        <translation>文件未能完整写入</translation>
    </message>
    <message>
        <source>Save %1</source>
        <translation>保存%1</translation>
    </message>
    <message>
        <source>The sequence is empty.</source>
        <translation>序列为空。</translation>
    </message>
    <message>
        <source>It ends in Output On, and a List file with that end state is refused.</source>
        <translation>其结束状态为“输出开启”，而具有此结束状态的列表文件会被拒绝。</translation>
    </message>
    <message>
        <source>It has %1 steps, more than this instrument&apos;s %2.</source>
        <translation>序列有 %1 步，超过了此仪器可容纳的 %2 步。</translation>
    </message>
    <message>
        <source>This file would not load back:
%1

Save anyway?</source>
        <translation>此文件将无法再加载：
%1

仍要保存吗？</translation>
    </message>
    <message>
        <source>Could not write %1: %2</source>
        <translation>无法写入 %1：%2</translation>
    </message>
    <message numerus="yes">
        <source>%1 was not loaded: %2.

Load its %n steps with the end state Output Off?</source>
        <translation>
            <numerusform>%1 未加载：%2。

是否以结束状态“输出关闭”加载其中的 %n 步？</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Saved %n steps to %1</source>
        <translation>
            <numerusform>已将 %n 步保存到 %1</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>tarn::host::SequenceHints</name>
    <message>
        <source>How long the sequence runs on the instrument, repeats included</source>
        <translation>序列在仪器上运行的总时长（含重复）</translation>
    </message>
    <message>
        <source>The channel the List sequence is uploaded to</source>
        <translation>列表序列上传到的通道</translation>
    </message>
    <message>
        <source>The channel the Delayer sequence is uploaded to</source>
        <translation>延时器序列上传到的通道</translation>
    </message>
    <message>
        <source>How often the instrument runs the sequence; Infinite repeats it until stopped</source>
        <translation>仪器运行该序列的次数；选择“无限”则一直重复，直到停止</translation>
    </message>
    <message>
        <source>The output&apos;s state after the last step</source>
        <translation>最后一步之后的输出状态</translation>
    </message>
    <message>
        <source>The List sequence: double-click a cell to edit it; right-click to add or remove steps; Delete removes the selected rows; Ctrl+C and Ctrl+V copy and paste rows</source>
        <translation>列表序列：双击单元格可编辑；右键单击可添加或删除步骤；按 Delete 键删除所选行；Ctrl+C 和 Ctrl+V 复制和粘贴行</translation>
    </message>
    <message>
        <source>The Delayer sequence: double-click a cell to edit it; right-click to add or remove steps; Delete removes the selected rows; Ctrl+C and Ctrl+V copy and paste rows</source>
        <translation>延时器序列：双击单元格可编辑；右键单击可添加或删除步骤；按 Delete 键删除所选行；Ctrl+C 和 Ctrl+V 复制和粘贴行</translation>
    </message>
    <message>
        <source>The steps the template makes</source>
        <translation>模板生成的步骤</translation>
    </message>
    <message>
        <source>The waveform the template makes</source>
        <translation>模板生成的波形</translation>
    </message>
    <message>
        <source>Whether the waveform shapes voltage or current</source>
        <translation>波形作用于电压还是电流</translation>
    </message>
    <message>
        <source>How the step times develop</source>
        <translation>各步骤时间的变化方式</translation>
    </message>
    <message>
        <source>Whether the pattern starts On or Off</source>
        <translation>模式以开还是关开始</translation>
    </message>
    <message>
        <source>Put this template back to its defaults</source>
        <translation>将此模板重置为默认值</translation>
    </message>
    <message>
        <source>Put every List template back to its defaults</source>
        <translation>将所有列表模板重置为默认值</translation>
    </message>
    <message>
        <source>Add the template&apos;s steps after the last step</source>
        <translation>将模板的步骤追加到最后一步之后</translation>
    </message>
    <message>
        <source>Add the template&apos;s steps before the selected step</source>
        <translation>将模板的步骤插入到所选步骤之前</translation>
    </message>
    <message>
        <source>Save the List sequence to a CSV file (Ctrl+S)</source>
        <translation>将列表序列保存到 CSV 文件（Ctrl+S）</translation>
    </message>
    <message>
        <source>Save the Delayer sequence to a CSV file (Ctrl+S)</source>
        <translation>将延时器序列保存到 CSV 文件（Ctrl+S）</translation>
    </message>
    <message>
        <source>Load a List sequence from a CSV file (Ctrl+O)</source>
        <translation>从 CSV 文件加载列表序列（Ctrl+O）</translation>
    </message>
    <message>
        <source>Load a Delayer sequence from a CSV file (Ctrl+O)</source>
        <translation>从 CSV 文件加载延时器序列（Ctrl+O）</translation>
    </message>
    <message>
        <source>Check the List sequence and send it to the instrument</source>
        <translation>检查列表序列并上传到仪器</translation>
    </message>
    <message>
        <source>Check the Delayer sequence and send it to the instrument</source>
        <translation>检查延时器序列并上传到仪器</translation>
    </message>
    <message>
        <source>Total %1 s, repeated endlessly</source>
        <translation>总计 %1 秒，无限重复</translation>
    </message>
    <message>
        <source>Total %1 s</source>
        <translation>总计 %1 秒</translation>
    </message>
    <message>
        <source>Total %1 s × %2 = %3 s</source>
        <translation>总计 %1 秒 × %2 = %3 秒</translation>
    </message>
    <message>
        <source>Red: %1 steps are more than the %2 this instrument holds. An upload sends only the first %2, after asking, and a file of this sequence would not load back.</source>
        <translation>红色：%1 步超过了此仪器可容纳的 %2 步。上传时会先询问，然后只发送前 %2 步；此序列保存成的文件也无法再加载。</translation>
    </message>
    <message>
        <source>Steps in the sequence; red above the %1 this instrument holds</source>
        <translation>序列中的步数；超过此仪器可容纳的 %1 步时显示为红色</translation>
    </message>
</context>
<context>
    <name>tarn::host::SequenceHistory</name>
    <message>
        <source>Clear</source>
        <translation>清空</translation>
    </message>
    <message>
        <source>Erase all %1 steps of the %2 sequence?</source>
        <translation>是否删除%2序列的全部 %1 步？</translation>
    </message>
    <message>
        <source>List</source>
        <translation>列表</translation>
    </message>
    <message>
        <source>Delayer</source>
        <translation>延时器</translation>
    </message>
</context>
<context>
    <name>tarn::host::SequenceReader</name>
    <message>
        <source>the file does not exist</source>
        <translation>文件不存在</translation>
    </message>
    <message>
        <source>the file holds %1 bytes, more than a sequence of %2 steps can take (%3 bytes)</source>
        <translation>文件大小为 %1 字节，超过了 %2 步的序列可能占用的大小（%3 字节）</translation>
    </message>
</context>
<context>
    <name>tarn::host::SerialLink</name>
    <message>
        <source>Cannot open %1: %2</source>
        <translation>无法打开 %1:%2</translation>
    </message>
    <message>
        <source>The serial line %1 was dropped: was the adapter unplugged or the instrument switched off?</source>
        <translation>串行线路 %1 已断开：适配器是否被拔出，或仪器是否已关闭？</translation>
    </message>
</context>
<context>
    <name>tarn::host::Step</name>
    <message>
        <source>Not uploaded: still connecting; upload once connected</source>
        <translation>未上传：仍在连接中；连接后再上传</translation>
    </message>
    <message>
        <source>Upload</source>
        <translation>上传</translation>
    </message>
    <message>
        <source>The sequence has %1 steps; this instrument holds %2.

Upload only the first %2 steps?</source>
        <translation>该序列有 %1 步；此仪器最多容纳 %2 步。

是否只上传前 %2 步？</translation>
    </message>
    <message>
        <source>Not uploaded: the sequence is longer than the instrument holds</source>
        <translation>未上传：序列超出了仪器可容纳的步数</translation>
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
        <source>The instrument&apos;s read-back could not be read</source>
        <translation>无法读取仪器的回读数据</translation>
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
    <message>
        <source>Step No. %1 was refused (the instrument holds %2 of %3 steps); the instrument says: “%4”</source>
        <translation>第 %1 号步骤被拒绝（仪器保存了 %3 步中的 %2 步）；仪器返回：“%4”</translation>
    </message>
    <message>
        <source>Step No. %1 differs: sent %2, the instrument holds %3</source>
        <translation>第 %1 号步骤不一致：发送 %2，仪器保存 %3</translation>
    </message>
    <message>
        <source>Steps %1 to %2 were refused by the instrument: %3 (it holds %4 of %5 steps)</source>
        <translation>第 %1 至 %2 步被仪器拒绝：%3（仪器中有 %4/%5 步）</translation>
    </message>
</context>
<context>
    <name>tarn::host::UsbtmcLink</name>
    <message>
        <source>no such USB instrument is attached, or the usbtmc driver has not taken it on</source>
        <translation>未连接此 USB 仪器，或 usbtmc 驱动程序未接管它</translation>
    </message>
    <message>
        <source>Cannot open %1: permission denied (the README&apos;s &quot;Connecting an instrument&quot; tells which group may use it)</source>
        <translation>无法打开 %1：权限不足（README 的“Connecting an instrument”一节说明了哪个用户组可以使用它）</translation>
    </message>
    <message>
        <source>Cannot open %1: %2</source>
        <translation>无法打开 %1:%2</translation>
    </message>
    <message>
        <source>The USB instrument %1 is gone: it was unplugged or switched off</source>
        <translation>USB 仪器 %1 已消失：它被拔出或已关闭</translation>
    </message>
    <message>
        <source>The USB instrument %1 failed: %2</source>
        <translation>USB 仪器 %1 出错：%2</translation>
    </message>
</context>
<context>
    <name>tarn::host::Vxi11Link</name>
    <message>
        <source>syntax error</source>
        <translation>语法错误</translation>
    </message>
    <message>
        <source>device not accessible</source>
        <translation>设备不可访问</translation>
    </message>
    <message>
        <source>invalid link identifier</source>
        <translation>无效的链路标识符</translation>
    </message>
    <message>
        <source>parameter error</source>
        <translation>参数错误</translation>
    </message>
    <message>
        <source>operation not supported</source>
        <translation>不支持该操作</translation>
    </message>
    <message>
        <source>out of resources</source>
        <translation>资源不足</translation>
    </message>
    <message>
        <source>device locked by another link</source>
        <translation>设备已被另一链路锁定</translation>
    </message>
    <message>
        <source>I/O timeout</source>
        <translation>I/O 超时</translation>
    </message>
    <message>
        <source>I/O error</source>
        <translation>I/O 错误</translation>
    </message>
    <message>
        <source>invalid address</source>
        <translation>无效地址</translation>
    </message>
    <message>
        <source>abort</source>
        <translation>中止</translation>
    </message>
    <message>
        <source>error %1</source>
        <translation>错误 %1</translation>
    </message>
    <message>
        <source>cannot find the host %1</source>
        <translation>找不到主机 %1</translation>
    </message>
    <message>
        <source>cannot ask the portmapper of %1 for its VXI-11 port (%2); give the port, as in vxi11://HOST:PORT</source>
        <translation>无法向 %1 的端口映射器查询其 VXI-11 端口（%2）；请给出端口，如 vxi11://HOST:PORT</translation>
    </message>
    <message>
        <source>the portmapper of %1 did not answer: %2</source>
        <translation>%1 的端口映射器没有应答：%2</translation>
    </message>
    <message>
        <source>no VXI-11 service registered at %1</source>
        <translation>%1 上没有注册 VXI-11 服务</translation>
    </message>
    <message>
        <source>cannot connect to the VXI-11 service of %1 (%2)</source>
        <translation>无法连接到 %1 的 VXI-11 服务（%2）</translation>
    </message>
    <message>
        <source>the VXI-11 service of %1 refused the link: %2</source>
        <translation>%1 的 VXI-11 服务拒绝了链路：%2</translation>
    </message>
    <message>
        <source>the instrument %1 has no device %2: %3</source>
        <translation>仪器 %1 没有设备 %2：%3</translation>
    </message>
    <message>
        <source>The VXI-11 instrument %1 closed the connection: was it switched off?</source>
        <translation>VXI-11 仪器 %1 关闭了连接：是否已关机？</translation>
    </message>
    <message>
        <source>The VXI-11 instrument %1 failed: %2</source>
        <translation>VXI-11 仪器 %1 出错：%2</translation>
    </message>
    <message>
        <source>The VXI-11 instrument %1 refused a message: %2</source>
        <translation>VXI-11 仪器 %1 拒绝了一条消息：%2</translation>
    </message>
    <message>
        <source>The VXI-11 instrument %1 failed to answer: %2</source>
        <translation>VXI-11 仪器 %1 未能应答：%2</translation>
    </message>
</context>
</TS>

"""Shows values of the library in gdb as people write them: 'source scripts/gdb/tessaria.py'."""

import datetime

import gdb
import gdb.printing

# The kinds of a Variant, in the order of its alternatives.
KINDS = ('Empty', 'Null', 'Missing', 'Integer', 'Long', 'Single', 'Double', 'Currency', 'Decimal',
         'Date', 'Boolean', 'String', 'Object')
DAY_ZERO = datetime.datetime(1899, 12, 30)


def text_of(string):
    """The characters of a std::u16string."""
    length = int(string['_M_string_length'])
    if length == 0:
        return ''
    first = string['_M_dataplus']['_M_p']
    units = gdb.selected_inferior().read_memory(int(first), 2 * length).tobytes()
    return units.decode('utf-16-le', errors='replace')


def decimal_of(decimal):
    words = decimal['Magnitude']['_M_elems']
    digits = str(sum(int(words[i]) << (32 * i) for i in range(3)))
    scale = int(decimal['Scale'])
    digits = digits.rjust(scale + 1, '0')
    sign = '-' if decimal['Negative'] else ''
    return sign + (digits if scale == 0 else digits[:-scale] + ',' + digits[-scale:])


def date_of(date):
    days = float(date['Days'])
    try:
        # The time of a day before day zero counts forwards all the same.
        day = DAY_ZERO + datetime.timedelta(days=int(days))
        time = datetime.timedelta(seconds=round(abs(days - int(days)) * 86400))
        return (day + time).strftime('%d/%m/%Y %H:%M:%S')
    except OverflowError:
        return '%g days' % days


def currency_of(currency):
    return ('%.4f' % (int(currency['TenThousandths']) / 10000)).replace('.', ',')


WRITERS = {
    'String': lambda value: '"' + text_of(value) + '"',
    'Currency': currency_of,
    'Decimal': decimal_of,
    'Date': date_of,
    'Object': lambda value: str(value['_M_ptr']),
}


class VariantPrinter:
    def __init__(self, value):
        self.data = value['data_']

    def to_string(self):
        index = int(self.data['_M_index'])
        if index >= len(KINDS):
            return 'Variant without a value'
        kind = KINDS[index]
        if index < 3:
            return kind
        held = self.data.type.template_argument(index)
        value = self.data['_M_u'].address.cast(held.pointer()).dereference()
        return kind + ' ' + WRITERS.get(kind, str)(value)


class SimplePrinter:
    def __init__(self, writer):
        self.writer = writer

    def __call__(self, value):
        self.value = value
        return self

    def to_string(self):
        return self.writer(self.value)


printers = gdb.printing.RegexpCollectionPrettyPrinter('tessaria')
printers.add_printer('Variant', '^tessaria::Variant$', VariantPrinter)
printers.add_printer('Currency', '^tessaria::Currency$', SimplePrinter(currency_of))
printers.add_printer('Decimal', '^tessaria::Decimal$', SimplePrinter(decimal_of))
printers.add_printer('Date', '^tessaria::Date$', SimplePrinter(date_of))
gdb.printing.register_pretty_printer(gdb.current_objfile(), printers, replace=True)

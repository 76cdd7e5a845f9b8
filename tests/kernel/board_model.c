// SPDX-License-Identifier: GPL-2.0 OR MIT
/*
 * The evaluation board on a printer port that is not there: a second port of the machine whose data
 * lines 0 and 1 are the bus's data and clock line and whose status bit 4 shows the data line. On
 * the bus is one chip with 256 registers, at the address 58h in 8-bit form.
 *
 * ppdev and all above it are the kernel's own; the model sees nothing but writes to the data
 * register. It also keeps the shortest time between two rises of the clock, as the parameter
 * shortest_clock_ns.
 */
#include <linux/ktime.h>
#include <linux/module.h>
#include <linux/parport.h>

#define DATA_LINE 0x01
#define CLOCK_LINE 0x02
#define POWER 0xb0
#define DATA_LINE_STATUS 0x10

#define CHIP_ADDRESS 0x58
#define COMPANY_ID 0x16

enum phase { IDLING, ADDRESSED, POINTING, STORING, SENDING };

static struct parport *port;
static u8 lines;	/* the data register */
static u8 registers[256] = { [COMPANY_ID] = 0x41 };

/* The chip's side of the bus. */
static enum phase phase, next;
static unsigned int clocks;	/* rises of the clock in this byte, its acknowledge included */
static u8 shifted;
static u8 pointer;
static bool pulls;	/* holds the data line low */

static ulong shortest_clock_ns = ULONG_MAX;
module_param(shortest_clock_ns, ulong, 0644);
static u64 last_rise;

static bool data_line(void)
{
	return (lines & DATA_LINE) && !pulls;
}

/* Whether the chip takes the byte that has come, and what comes after it. */
static bool take_byte(void)
{
	switch (phase) {
	case ADDRESSED:
		next = shifted & 1 ? SENDING : POINTING;
		return (shifted & 0xfe) == CHIP_ADDRESS;
	case POINTING:
		pointer = shifted;
		next = STORING;
		return true;
	case STORING:
		if (pointer != COMPANY_ID)
			registers[pointer] = shifted;
		pointer++;
		return true;
	default:
		return false;
	}
}

static void clock_rises(void)
{
	u64 now = ktime_get_ns();

	if (last_rise && now - last_rise < shortest_clock_ns)
		shortest_clock_ns = now - last_rise;
	last_rise = now;

	clocks++;
	if (phase != SENDING && clocks <= 8)
		shifted = shifted << 1 | data_line();
	if (phase == SENDING && clocks == 9 && data_line())
		phase = next = IDLING;	/* refused: the last byte */
}

/* The chip moves the data line only now. */
static void clock_falls(void)
{
	pulls = false;
	if (phase == IDLING)
		return;
	if (clocks == 8 && phase != SENDING) {
		pulls = take_byte();
		if (!pulls)
			phase = next = IDLING;
	}
	if (clocks == 9) {
		clocks = 0;
		phase = next;
		if (phase == SENDING)
			shifted = registers[pointer++];
	}
	if (phase == SENDING && clocks < 8)
		pulls = !(shifted & 0x80 >> clocks);
}

static void start_or_stop(bool start)
{
	phase = next = start ? ADDRESSED : IDLING;
	clocks = 0;
	pulls = false;
}

static void model_write_data(struct parport *p, unsigned char value)
{
	u8 before = lines;
	bool data_before = data_line();
	bool clock_before = before & CLOCK_LINE, clock = value & CLOCK_LINE;

	lines = value;
	if ((value & POWER) != POWER) {
		start_or_stop(false);
		return;
	}
	/* With the clock falling the data line counts as changed after it, else before it. */
	if (clock_before && !clock)
		clock_falls();
	else if (!clock_before && clock)
		clock_rises();
	else if (clock && data_line() != data_before)
		start_or_stop(data_before);
}

static unsigned char model_read_data(struct parport *p)
{
	return lines;
}

static unsigned char model_read_status(struct parport *p)
{
	return data_line() ? DATA_LINE_STATUS : 0;
}

/* The board has no use for the control lines, nor for anything else of a port. */
static void model_write_control(struct parport *p, unsigned char value) { }
static unsigned char model_read_control(struct parport *p) { return 0; }
static unsigned char model_frob_control(struct parport *p, unsigned char mask, unsigned char value)
{
	return 0;
}
static void model_nothing(struct parport *p) { }
static void model_init_state(struct pardevice *d, struct parport_state *s) { }
static void model_state(struct parport *p, struct parport_state *s) { }

static struct parport_operations model_operations = {
	.owner = THIS_MODULE,
	.write_data = model_write_data,
	.read_data = model_read_data,
	.read_status = model_read_status,
	.write_control = model_write_control,
	.read_control = model_read_control,
	.frob_control = model_frob_control,
	.enable_irq = model_nothing,
	.disable_irq = model_nothing,
	.data_forward = model_nothing,
	.data_reverse = model_nothing,
	.init_state = model_init_state,
	.save_state = model_state,
	.restore_state = model_state,
};

static int __init model_init(void)
{
	port = parport_register_port(0x278, PARPORT_IRQ_NONE, PARPORT_DMA_NONE, &model_operations);
	if (!port)
		return -ENOMEM;
	port->modes = PARPORT_MODE_PCSPP;
	parport_announce_port(port);
	return 0;
}

static void __exit model_exit(void)
{
	parport_remove_port(port);
	parport_put_port(port);
}

module_init(model_init);
module_exit(model_exit);
MODULE_LICENSE("Dual MIT/GPL");
MODULE_DESCRIPTION("Evaluation board on a printer port, as a model");

#pragma once

#include <jack/jack.h>
#include <jack/midiport.h>

namespace tessel8::host {

/// The functions of JACK's client library. It is looked for at run time, so that the program
/// starts on systems without JACK too; `pw-jack` puts PipeWire's in its place.
class JackLibrary {
    /// An address that becomes a pointer to whatever function it is assigned to.
    struct Symbol {
        void* address;
        template <typename Function>
        operator Function*() const {
            return reinterpret_cast<Function*>(address);
        }
    };

    static void* load();
    Symbol find(const char* name) const;

    void* library_ = load();

  public:
    /// Throws UserError where there is no such library. It stays loaded until the program ends, as
    /// threads of its own may.
    JackLibrary() = default;

    decltype(&jack_client_open) clientOpen = find("jack_client_open");
    decltype(&jack_client_close) clientClose = find("jack_client_close");
    decltype(&jack_client_name_size) clientNameSize = find("jack_client_name_size");
    decltype(&jack_activate) activate = find("jack_activate");
    decltype(&jack_get_sample_rate) getSampleRate = find("jack_get_sample_rate");
    decltype(&jack_get_buffer_size) getBufferSize = find("jack_get_buffer_size");
    decltype(&jack_cpu_load) cpuLoad = find("jack_cpu_load");
    decltype(&jack_transport_query) transportQuery = find("jack_transport_query");

    decltype(&jack_set_error_function) setErrorFunction = find("jack_set_error_function");
    decltype(&jack_set_info_function) setInfoFunction = find("jack_set_info_function");
    decltype(&jack_set_process_callback) setProcessCallback = find("jack_set_process_callback");
    decltype(&jack_set_buffer_size_callback) setBufferSizeCallback =
        find("jack_set_buffer_size_callback");
    decltype(&jack_set_sample_rate_callback) setSampleRateCallback =
        find("jack_set_sample_rate_callback");
    decltype(&jack_set_xrun_callback) setXrunCallback = find("jack_set_xrun_callback");
    decltype(&jack_on_shutdown) onShutdown = find("jack_on_shutdown");

    decltype(&jack_port_register) portRegister = find("jack_port_register");
    decltype(&jack_port_get_buffer) portGetBuffer = find("jack_port_get_buffer");
    decltype(&jack_port_name) portName = find("jack_port_name");
    decltype(&jack_get_ports) getPorts = find("jack_get_ports");
    decltype(&jack_connect) connect = find("jack_connect");
    decltype(&jack_free) free = find("jack_free");

    decltype(&jack_midi_get_event_count) midiGetEventCount = find("jack_midi_get_event_count");
    decltype(&jack_midi_event_get) midiEventGet = find("jack_midi_event_get");
};

}  // namespace tessel8::host

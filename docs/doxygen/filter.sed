# Takes out of the headers what Doxygen 1.9 misreads, before it reads them; lines keep their numbers.

# An explicit instantiation is no declaration of a new function.
/^extern template / {
    :join
    /;/! {
        N
        b join
    }
    s/[^\n]//g
}

# A trait of the standard library that is specialised is no variable of ours.
/^template <(typename CharT)?>$/ {
    N
    s/^.*\n.*(enable_borrowed_range|enable_view)<.*$/\n/
}

# A template that stands on its own partial specialisation does not stand on itself.
s/^(class ORVXX_API Buffer) : public Buffer<const E> \{/\1 {/

' An index is rounded to a whole number, half to even.
'> two two four
Sub main()
    Dim a As Variant
    a = Array("zero", "one", "two", "three", "four")
    Debug.Print a(1.5) & " " & a(2.5) & " " & a("3.6")
End Sub

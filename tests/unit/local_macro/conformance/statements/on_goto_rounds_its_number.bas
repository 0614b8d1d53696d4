' The number is rounded to a whole one, half to even.
'> second
Sub main()
    On 2.5 GoTo 10, 20, 30
10  Debug.Print "first": Exit Sub
20  Debug.Print "second": Exit Sub
30  Debug.Print "third": Exit Sub
End Sub
